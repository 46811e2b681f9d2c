#include <algorithm>

#include "automation/coercion.h"
#include "automation/text.h"
#include "hosts/cli/command.h"
#include "hosts/cli/library_failure.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/output/histogram_plot.h"
#include "vestara/draws/draw_range.h"
#include "vestara/draws/wheel_names.h"
#include "vestara/foundation/message_text.h"
#include "vestara/study/chance/chance.h"
#include "vestara/study/number_gaps.h"

namespace vestara::host {
namespace {

struct GapsOptions {
  std::vector<std::string> numbers;
  std::string wheel;
  bool all = false;
  bool without_national = false;
  std::string from;
  std::string to;
  bool plot = false;
};

void add_gaps(CLI::App& app, GapsOptions& options) {
  arguments(app, "NUMBERS", options.numbers, "1 to 90: 53, or a pair: 5,12 or 5 12")->required();
  value_option(app, "--wheel", options.wheel, "WHEEL", "one of the eleven, as in RM or Roma");
  app.add_flag("--all", options.all, "over all wheels together (default)");
  app.add_flag("--without-rn", options.without_national, "but not the national one");
  add_range(app, options.from, options.to);
  app.add_flag("--plot", options.plot, "draw a histogram of the distances; tables only");
}

/// One number, or two in ascending order.
std::vector<int16_t> number_or_pair(const NumberList& list) {
  if (list.count > 2)
    throw Failure(FailureKind::argument, "NUMBERS: these are " + std::to_string(list.count) +
                                             "; distances are kept of single numbers and of pairs, give one or two");
  std::vector<int16_t> numbers;
  for (const std::string_view number : automation::split(list.text, ','))
    numbers.push_back(static_cast<int16_t>(automation::leading_number(number)));
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

int16_t wheel_value(const std::string& text) {
  if (const auto wheel = wheel_named(text)) return *wheel;
  throw Failure(FailureKind::argument, "--wheel " + shown(text) + " is not known; wheels are " + wheel_choices() +
                                           "; without it, all of them together");
}

NumberGapQuestion gap_question(const GapsOptions& options, OutputFormat format) {
  NumberGapQuestion question;
  question.numbers = number_or_pair(numbers_value(options.numbers));
  if (!options.wheel.empty()) {
    refuse("--wheel", {{"--all", options.all}, {"--without-rn", options.without_national}}, "it names the only one");
    question.wheel = wheel_value(options.wheel);
  }
  if (options.plot && format != OutputFormat::table)
    throw Failure(FailureKind::argument,
                  "--plot goes with --format table only; the other forms carry the distances themselves");
  question.without_national = options.without_national;
  question.from = day_bound("--from", options.from);
  question.to = day_bound("--to", options.to);
  check_range(question.from, question.to);
  return question;
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

std::vector<Fact> facts_of(const NumberGaps& gaps, const NumberGapQuestion& question, double chance) {
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

Report describe(const NumberGaps& gaps, const NumberGapQuestion& question, double chance) {
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

void write_plot(std::ostream& out, const NumberGaps& gaps, const NumberGapQuestion& question, double chance) {
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

ExitCode run_gaps(const GapsOptions& options, const Context& context) {
  const NumberGapQuestion question = gap_question(options, context.settings.format);
  const ArchiveSession session = context.open_archive();
  const NumberGaps gaps = answer(session, "the distances cannot be counted",
                                 [&](DbConnector&) { return load_number_gaps(session, question); });
  const double chance = appearance_chance(question.numbers.size(), wheels_in_draw(session, question));
  context.show(describe(gaps, question, chance));
  if (options.plot) write_plot(context.out, gaps, question, chance);
  return gaps.appearances == 0 ? ExitCode::nothing_found : ExitCode::ok;
}

}  // namespace

extern const Command gaps_command{
    "gaps", Group::questions, "List the distances between the appearances of a number or a pair",
    "vestara gaps 53 --wheel RN --plot\n"
    "  vestara gaps 5,12 --all --without-rn\n\n"
    "A distance counts draws of the wheel from one appearance to the next, 1 for neighbours: one more than\n"
    "the draws between them. `vestara distances` counts the draws without a hit, of the whole archive, and\n"
    "lists the open gaps as well. Over all wheels dates count, and a second wheel of a date is at distance\n"
    "0; means and deviation have those in them, mean between dates has not. The current delay counts draws\n"
    "since the last appearance: 0 for one in the newest. The histogram has a mark where chance would be: a\n"
    "number comes out on a wheel in 5 of 90 draws, a pair in 20 of 8010.",
    bound<add_gaps, run_gaps>};

}  // namespace vestara::host
