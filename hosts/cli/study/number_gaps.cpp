#include "hosts/cli/study/number_gaps.h"

#include <string>

#include "automation/coercion.h"
#include "hosts/cli/library_failure.h"
#include "vestara/distances/deviation.h"
#include "vestara/distances/distance_lists.h"
#include "vestara/distances/distance_walk.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/wheels.h"

namespace vestara::host {
namespace {

/// The list of the question's number or pair, newest draw first.
std::vector<int32_t> load_list(DbConnector& connector, const GapQuestion& question) {
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

std::vector<int32_t> appearance_days(const ArchiveSession& session, const GapQuestion& question) {
  std::string statement = "SELECT dtEstr FROM storico" + range_condition(range_of(question));
  const char* joint = statement.find(" WHERE ") == std::string::npos ? " WHERE " : " AND ";
  for (const int16_t number : question.numbers) {
    statement += joint + std::to_string(number) + " IN(estr1,estr2,estr3,estr4,estr5)";
    joint = " AND ";
  }
  auto rows = session.rows(statement + " ORDER BY dtEstr DESC");
  std::vector<int32_t> days;
  for (const Column day = rows->column("dtEstr"); !rows->at_end(); rows->move_next())
    if (const auto date = automation::date_in(rows->value(day))) days.push_back(date->day());
  session.connector()->CloseRecordset(rows);
  return days;
}

}  // namespace

DrawRange range_of(const GapQuestion& question) {
  WheelSelection wheels;
  if (question.wheel != 0) wheels = {false, std::string(wheel_code(question.wheel))};
  if (question.without_national) wheels = {false, city_codes()};
  return {wheels, question.from, question.to};
}

NumberGaps load_gaps(const ArchiveSession& session, const GapQuestion& question) {
  PreloadRuoteAlias(session.connector());
  const auto list = answer(session, "the distances cannot be counted",
                           [&](DbConnector& connector) { return load_list(connector, question); });
  NumberGaps gaps;
  gaps.appearances = std::ssize(list);
  if (list.empty()) return gaps;
  // Over all wheels the first date counts as well.
  gaps.current_delay = list.front() - (question.wheel == 0 ? 1 : 0);
  gaps.distances.assign(list.begin() + 1, list.end());
  summarise(gaps);
  gaps.days = appearance_days(session, question);
  if (gaps.days.size() != list.size()) gaps.days.clear();
  return gaps;
}

}  // namespace vestara::host
