#include "hosts/cli/checks/day_findings.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

struct DayWords {
  DayFault fault;
  std::string_view what;
  std::string_view remedy;
};

constexpr std::array<DayWords, 5> day_words{{
    {DayFault::in_the_future, "dates in the future",
     "vestara draw delete DATE, when the date is a slip; vestara draw save DATE … enters the draw under its own"},
    {DayFault::one_wheel, "dates with one wheel only",
     "complete the draw by vestara draw save DATE …, or put the row under the date of its draw"},
    {DayFault::two_contests, "dates with two contests",
     "vestara draw save DATE … writes the draw anew, under one number"},
    {DayFault::out_of_order, "contest numbers out of order",
     "vestara draw save DATE … writes a draw anew, under its own number"},
    {DayFault::beyond_year, "contest numbers beyond the dates of their year",
     "enter the draws that are missing, or write the draw anew: vestara draw save DATE …"},
}};

/// What tells of the fault, behind the date of its first day.
std::string detail_of(const DayFinding& finding) {
  const DrawDay& day = finding.first;
  const std::string most = std::to_string(day.most_contest);
  const std::string limit = std::to_string(finding.limit);
  switch (finding.fault) {
    case DayFault::in_the_future:
      return {};
    case DayFault::one_wheel:
      return ", wheel " + day.wheel;
    case DayFault::two_contests:
      return ", contests " + std::to_string(day.least_contest) + " and " + most;
    case DayFault::out_of_order:
      return ", contest " + most + " behind contest " + limit;
    case DayFault::beyond_year:
      return ", contest " + most + " of " + limit;
  }
  return {};
}

}  // namespace

Findings date_findings(const DateFacts& facts) {
  if (facts.impossible == 0) return {};
  return {{"dates that there are not", facts.impossible, facts.example,
           "correct or delete their rows; searches pass them over"}};
}

Findings day_findings(const std::vector<DayFinding>& faults) {
  Findings findings;
  for (const DayFinding& fault : faults) {
    const DayWords& words = *std::ranges::find(day_words, fault.fault, &DayWords::fault);
    findings.push_back({std::string(words.what), fault.count, shown_day(fault.first.day) + detail_of(fault),
                        std::string(words.remedy)});
  }
  return findings;
}

}  // namespace vestara::host
