#include <algorithm>

#include "hosts/cli/archive/archive_session.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/output/histogram_plot.h"
#include "hosts/cli/study/number_gaps.h"
#include "vestara/draws/draw_range.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"
#include "vestara/study/chance.h"

namespace vestara::host {
namespace {

/// Wheels in a draw: one, or as many as a date of the range had in the mean.
double wheels_in_draw(const ArchiveSession& session, const GapQuestion& question) {
  if (question.wheel != 0) return 1;
  auto rows = session.rows("SELECT count(*) AS righe,count(DISTINCT dtEstr) AS giorni FROM storico" +
                           range_condition(range_of(question)));
  const int32_t wheels = rows->whole_number(rows->column("righe"));
  const int32_t dates = rows->whole_number(rows->column("giorni"));
  session.connector()->CloseRecordset(rows);
  return dates == 0 ? 0 : static_cast<double>(wheels) / dates;
}

Cell optional_cell(std::optional<double> value) { return value ? Cell(*value) : Cell(); }
Cell whole_cell(std::optional<double> value) { return value ? Cell(static_cast<int64_t>(*value)) : Cell(); }

/// Of one appearance to the next on another date.
std::vector<int64_t> between_dates(const NumberGaps& gaps) {
  std::vector<int64_t> lengths;
  std::copy_if(gaps.distances.begin(), gaps.distances.end(), std::back_inserter(lengths),
               [](int32_t distance) { return distance > 0; });
  return lengths;
}

std::vector<Fact> facts_of(const NumberGaps& gaps, const GapQuestion& question, double chance) {
  std::vector<Fact> facts{{"appearances", gaps.appearances},
                          {"current_delay", gaps.current_delay ? Cell(*gaps.current_delay) : Cell()},
                          {"mean_distance", optional_cell(gaps.mean)},
                          {"minimum_distance", whole_cell(gaps.least)},
                          {"maximum_distance", whole_cell(gaps.most)},
                          {"deviation", optional_cell(gaps.deviation)},
                          {"expected_distance", chance > 0 ? Cell(1 / chance) : Cell()}};
  if (question.wheel != 0) return facts;
  const auto lengths = between_dates(gaps);
  double sum = 0;
  for (const int64_t length : lengths) sum += static_cast<double>(length);
  facts.push_back({"on_the_same_date", std::ssize(gaps.distances) - std::ssize(lengths)});
  facts.push_back({"mean_between_dates", lengths.empty() ? Cell() : Cell(sum / static_cast<double>(lengths.size()))});
  return facts;
}

Report describe(const NumberGaps& gaps, const GapQuestion& question, double chance) {
  Report report;
  report.facts = facts_of(gaps, question, chance);
  report.listing = "distances";
  report.row_kind = "distance";
  report.columns = {"from", "to", "draws", "days"};
  for (size_t i = 0; i < gaps.distances.size(); ++i) {
    const int64_t draws = gaps.distances[i];
    if (gaps.days.empty()) {
      report.rows.push_back({Cell(), Cell(), draws, Cell()});
      continue;
    }
    const int32_t from = gaps.days[i + 1];
    const int32_t to = gaps.days[i];
    report.rows.push_back({shown_day(from), shown_day(to), draws, int64_t{to} - from});
  }
  return report;
}

void write_plot(std::ostream& out, const NumberGaps& gaps, const GapQuestion& question, double chance) {
  const bool utf8 = shows_utf8(out);
  const Histogram histogram = histogram_of(between_dates(gaps));
  out << "\ndistances between two appearances, in "
      << (question.wheel != 0 ? "draws of " + std::string(wheel_code(question.wheel)) : "draw dates");
  if (histogram.counts.empty())
    out << ": none\n";
  else
    out << "; " << (utf8 ? "┃" : "|") << " is what chance alone would give\n"
        << plot(histogram, {terminal_columns(out), utf8}, expected_counts(histogram, chance));
}

}  // namespace

ExitCode run_gaps(const GapsOptions& options, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_reading(context.options.database);
  const NumberGaps gaps = load_gaps(session, options.question);
  const double chance = appearance_chance(options.question.numbers.size(), wheels_in_draw(session, options.question));
  write_report(context.out, describe(gaps, options.question, chance), context.style());
  if (options.plot) write_plot(context.out, gaps, options.question, chance);
  return gaps.appearances == 0 ? ExitCode::nothing_found : ExitCode::ok;
}

}  // namespace vestara::host
