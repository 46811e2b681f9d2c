#include "vestara/study/number_gaps.h"

#include <string>

#include "automation/coercion.h"
#include "automation/text.h"
#include "vestara/distances/deviation.h"
#include "vestara/distances/distance_lists.h"
#include "vestara/distances/distance_walk.h"
#include "vestara/draws/draw_range.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/wheels.h"

namespace vestara {
namespace {

/// The draws that they are taken from.
DrawRange range_of(const NumberGapQuestion& question) {
  WheelSelection wheels;
  if (question.wheel != 0) wheels = {false, std::string(wheel_code(question.wheel))};
  if (question.without_national) wheels = {false, city_codes()};
  return {wheels, question.from, question.to};
}

/// The list of the question's number or pair, newest draw first.
std::vector<int32_t> load_list(DbConnector& connector, const NumberGapQuestion& question) {
  const DrawSelection draws = selection_of(range_of(question));
  const DistancePeriod period{draws.from, draws.to};
  const auto national = question.without_national ? NationalWheel::left_out : NationalWheel::included;
  const auto recorded = question.is_pair() ? Recorded::pairs : Recorded::numbers;
  const DistanceLists lists = question.wheel != 0 ? load_wheel_distances(connector, recorded, draws.wheels, period)
                                                  : load_date_distances(connector, recorded, national, period);
  const size_t place =
      question.is_pair() ? pair_place(question.numbers[0], question.numbers[1]) : number_place(question.numbers[0]);
  return lists.list(question.wheel != 0 ? wheel_group(question.wheel) : 0, place);
}

void summarise(NumberGaps& gaps) {
  if (gaps.distances.empty()) return;
  const DistanceSummary summary = summary_of(gaps.distances);
  gaps.mean = summary.mean;
  gaps.least = summary.least;
  gaps.most = summary.most;
  if (gaps.distances.size() > 1) gaps.deviation = standard_deviation(gaps.distances, Deviation::of_sample);
}

std::vector<int32_t> appearance_days(const Archive& archive, const NumberGapQuestion& question) {
  std::string condition = range_condition(range_of(question));
  for (const int16_t number : question.numbers)
    condition += automation::concatenated(
        {condition.empty() ? " WHERE " : " AND ", std::to_string(number), " IN(estr1,estr2,estr3,estr4,estr5)"});
  auto rows = archive.rows("SELECT dtEstr FROM storico" + condition + " ORDER BY dtEstr DESC");
  std::vector<int32_t> days;
  for (const Column day = rows->column("dtEstr"); !rows->at_end(); rows->move_next())
    if (const auto date = automation::date_in(rows->value(day))) days.push_back(date->day());
  archive.connector()->CloseRecordset(rows);
  return days;
}

}  // namespace

NumberGaps load_number_gaps(const Archive& archive, const NumberGapQuestion& question) {
  PreloadRuoteAlias(archive.connector());
  const auto list = load_list(*archive.connector(), question);
  NumberGaps gaps;
  gaps.appearances = std::ssize(list);
  if (list.empty()) return gaps;
  // Over all wheels the first date counts as well.
  gaps.current_delay = list.front() - (question.wheel == 0 ? 1 : 0);
  gaps.distances.assign(list.begin() + 1, list.end());
  summarise(gaps);
  gaps.days = appearance_days(archive, question);
  if (gaps.days.size() != list.size()) gaps.days.clear();
  return gaps;
}

double wheels_in_draw(const Archive& archive, const NumberGapQuestion& question) {
  if (question.wheel != 0) return 1;
  auto rows = archive.rows("SELECT count(*) AS righe,count(DISTINCT dtEstr) AS giorni FROM storico" +
                           range_condition(range_of(question)));
  const int32_t wheels = rows->whole_number(rows->column("righe"));
  const int32_t dates = rows->whole_number(rows->column("giorni"));
  archive.connector()->CloseRecordset(rows);
  return dates == 0 ? 0 : static_cast<double>(wheels) / dates;
}

}  // namespace vestara
