#include "hosts/cli/study/number_gaps.h"

#include <string>

#include "automation/coercion.h"
#include "hosts/cli/library_failure.h"
#include "vestara/distances/number_distances.h"
#include "vestara/draws/wheel_names.h"

namespace vestara::host {
namespace {

using automation::Array;
using automation::Variant;

/// Runs the load that the question needs, newest draw first.
bool load(cDistanze2& library, const GapQuestion& question) {
  const Variant from = date_bound(question.from);
  const Variant to = date_bound(question.to);
  if (question.wheel != 0) {
    const std::string wheel(wheel_code(question.wheel));
    return question.is_pair() ? library.LoadDistanze2Ambi(wheel, from, to) : library.LoadDistanze1(wheel, from, to);
  }
  return question.is_pair() ? library.LoadDistanze2AmbiTutte(from, to, question.without_national)
                            : library.LoadDistanze1Tutte(from, to, question.without_national);
}

std::vector<int32_t> list_of(const cDistanze2& library, const GapQuestion& question) {
  constexpr int32_t all = -1;
  const int32_t wheel = question.wheel != 0 ? question.wheel : all;
  const Array list = question.is_pair() ? library.GetDistanzeAmbi(question.numbers[0], question.numbers[1], wheel)
                                        : library.GetDistanzeSingleNumber(question.numbers[0], wheel);
  std::vector<int32_t> values;
  for (const Variant& value : list.items()) values.push_back(automation::to_long(value));
  return values;
}

double mean_of(const cDistanze2& library, const GapQuestion& question, double& least, double& most) {
  const int16_t first = question.numbers.front();
  const int16_t second = question.numbers.back();
  const Variant wheel(question.wheel);
  if (question.wheel == 0)
    return question.is_pair() ? library.GetDistanzeAVG2AmbiTutte(first, second, least, most)
                              : library.GetDistanzeAVG1Tutte(first, least, most);
  return question.is_pair() ? library.GetDistanzeAVG2Ambi(first, second, wheel, least, most)
                            : library.GetDistanzeAVG1(first, wheel, least, most);
}

/// The library gives 0.1 for a deviation of 0, and for that of a single distance, which has none.
double deviation_of(const cDistanze2& library, const NumberGaps& gaps) {
  if (gaps.least == gaps.most) return 0;
  const std::vector<Variant> values(gaps.distances.begin(), gaps.distances.end());
  return library.StandardDeviation(Array(automation::VariantKind::long_integer, 0, values));
}

void summarise(NumberGaps& gaps, const cDistanze2& library, const GapQuestion& question) {
  if (gaps.distances.empty()) return;
  double least = 0;
  double most = 0;
  gaps.mean = mean_of(library, question, least, most);
  gaps.least = least;
  gaps.most = most;
  if (gaps.distances.size() > 1) gaps.deviation = deviation_of(library, gaps);
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
  cDistanze2 library;
  library.ActiveConnection(session.connector());
  require(load(library, question), session, "the distances cannot be counted");
  const auto list = list_of(library, question);
  NumberGaps gaps;
  gaps.appearances = std::ssize(list);
  if (list.empty()) return gaps;
  // Over all wheels the first date counts as well.
  gaps.current_delay = list.front() - (question.wheel == 0 ? 1 : 0);
  gaps.distances.assign(list.begin() + 1, list.end());
  summarise(gaps, library, question);
  gaps.days = appearance_days(session, question);
  if (gaps.days.size() != list.size()) gaps.days.clear();
  return gaps;
}

}  // namespace vestara::host
