#include "vestara/study/study_answers.h"

#include <array>
#include <string>

#include "records/record_table.h"
#include "vestara/draws/group_place.h"

namespace vestara::study {
namespace {

using automation::Ref;
using records::RecordSet;
using records::RecordTable;

std::string code_of(int32_t wheel) {
  WheelSet one;
  one.add(wheel);
  return one.name();
}

std::string drawn_text(const DrawnNumbers& numbers) { return number_text({numbers.begin(), numbers.end()}); }

/// What a row of two kinds tells of its drawing.
const Drawing& drawing_of(const Drawing& row) { return row; }
const Drawing& drawing_of(const FoundDrawing& row) { return row.drawing; }

template <class Row>
void add_place(RecordTable& table, const std::vector<Row>& rows) {
  table.column("date", rows, [](const Row& row) { return drawing_of(row).date; });
  table.column("contest", rows, [](const Row& row) { return drawing_of(row).contest; });
  table.column("wheel", rows, [](const Row& row) { return code_of(drawing_of(row).wheel); });
}

template <class Row>
void add_figures(RecordTable& table, const std::vector<Row>& rows) {
  const auto add = [&](const char* name, auto field) {
    table.column(name, rows, [field](const Row& row) { return row.figures.*field; });
  };
  add("draws", &Figures::draws);
  add("times", &Figures::times);
  add("expected", &Figures::expected);
  add("z", &Figures::z);
  add("delay", &Figures::delay);
  add("last", &Figures::last);
  add("record", &Figures::record);
  add("record_from", &Figures::record_from);
  add("record_to", &Figures::record_to);
}

}  // namespace

Ref<RecordSet> as_records(const std::vector<Drawing>& rows) {
  constexpr std::array names{"n1", "n2", "n3", "n4", "n5"};
  RecordTable table;
  add_place(table, rows);
  for (size_t i = 0; i < names.size(); ++i)
    table.column(names[i], rows, [i](const Drawing& row) { return int32_t{row.numbers[i]}; });
  return table.take();
}

Ref<RecordSet> as_records(const std::vector<FoundDrawing>& rows) {
  RecordTable table;
  add_place(table, rows);
  table.column("hits", rows, [](const FoundDrawing& row) { return static_cast<int32_t>(row.numbers.size()); });
  table.column("numbers", rows, [](const FoundDrawing& row) { return number_text(row.numbers); });
  table.column("drawn", rows, [](const FoundDrawing& row) { return drawn_text(row.drawing.numbers); });
  return table.take();
}

Ref<RecordSet> as_records(const std::vector<NumberFigures>& rows) {
  RecordTable table;
  table.column("wheel", rows, &NumberFigures::wheel);
  table.column("number", rows, &NumberFigures::number);
  add_figures(table, rows);
  return table.take();
}

Ref<RecordSet> as_records(const std::vector<GroupFigures>& rows) {
  RecordTable table;
  table.column("rank", rows, &GroupFigures::rank);
  table.column("wheel", rows, &GroupFigures::wheel);
  table.column("numbers", rows, [](const GroupFigures& row) { return number_text(row.numbers); });
  add_figures(table, rows);
  return table.take();
}

Ref<RecordSet> as_records(const std::vector<SetFigures>& rows) {
  RecordTable table;
  table.column("wheel", rows, &SetFigures::wheel);
  table.column("set", rows, [](const SetFigures& row) { return row.set.name; });
  table.column("numbers", rows, [](const SetFigures& row) { return number_text(row.set.numbers); });
  add_figures(table, rows);
  return table.take();
}

Ref<RecordSet> as_records(const std::vector<Gap>& rows) {
  RecordTable table;
  table.column("wheel", rows, &Gap::wheel);
  table.column("from", rows, &Gap::from);
  table.column("to", rows, &Gap::to);
  table.column("draws", rows, &Gap::draws);
  table.column("days", rows, &Gap::days);
  return table.take();
}

Ref<RecordSet> as_records(const std::vector<FairnessTest>& rows) {
  RecordTable table;
  table.column("wheel", rows, &FairnessTest::wheel);
  table.column("test", rows, &FairnessTest::test);
  table.column("statistic", rows, &FairnessTest::statistic);
  table.column("degrees", rows, &FairnessTest::degrees);
  table.column("p", rows, &FairnessTest::p);
  table.column("p_holm", rows, &FairnessTest::p_holm);
  return table.take();
}

Ref<RecordSet> as_records(const std::vector<BetOdds>& rows) {
  RecordTable table;
  table.column("bet", rows, &BetOdds::bet);
  table.column("chance", rows, &BetOdds::chance);
  table.column("one_in", rows, &BetOdds::one_in);
  table.column("median_draws", rows, &BetOdds::median_draws);
  return table.take();
}

}  // namespace vestara::study
