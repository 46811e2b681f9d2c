#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/archive/import_words.h"
#include "hosts/cli/archive/removal_place.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/terminal/progress_bar.h"
#include "vestara/files/draw_file.h"
#include "vestara/files/file_source.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/import/archive_import.h"

namespace vestara::host {
namespace {

Cell number(size_t count) { return static_cast<int64_t>(count); }

std::string in_words(InFile in_file) {
  if (in_file == InFile::missing) return "missing";
  return in_file == InFile::equal ? "equal" : "different";
}

void list_manual(Report& report, const ImportPlan& plan) {
  report.listing = "manual_draws";
  report.row_kind = "manual_draw";
  report.columns = {"manual_date", "in_file", "result"};
  for (const ManualDraw& draw : plan.manual)
    report.rows.push_back(
        {shown_day(draw.day), in_words(draw.in_file), std::string(fate_of(draw, plan.missing_manual))});
}

Report summary(const DrawFile& file, const ImportOutcome& outcome, const std::string& result) {
  const CollectedDraws& draws = file.draws;
  const ImportPlan& plan = outcome.plan;
  Report report;
  report.facts = {{"result", result},
                  {"file_form", std::string(format_name(file.format))},
                  {"read", number(draws.read)},
                  {"added", number(plan.added)},
                  {"changed", number(plan.rewritten)},
                  {"gone", number(plan.gone)},
                  {"kept", number(plan.kept)},
                  {"repeated", number(draws.repeated)},
                  {"rejected", number(draws.rejected.count())},
                  {"first_date", shown_day(draws.rows.front().day)},
                  {"last_date", shown_day(draws.rows.back().day)},
                  {"held_before", number(plan.held)}};
  report.facts.push_back({"backup", outcome.backup ? Cell(outcome.backup->string()) : Cell(Absent{"none"})});
  list_manual(report, plan);
  return report;
}

ImportRules rules_of(const ImportOptions& options, const std::string& database) {
  ImportRules rules{options.mode, options.missing_manual, {}};
  if (options.backup == Backup::file) rules.backup = [url = archive_url(database)] { return removal_place(url); };
  return rules;
}

/// What an import would do; an archive that is not there yet holds nothing.
ImportPlan plan_to_come(const std::string& database, const std::vector<DrawRow>& rows, const ImportRules& rules) {
  if (ArchiveSession::may_exist(database)) {
    const ArchiveSession session = ArchiveSession::for_reading(database);
    if (session.has_tables()) return plan_for(session, rows, rules);
  }
  return plan_import({}, {}, rows, rules.mode, rules.missing_manual);
}

void refuse_loss(const ImportPlan& plan, const ImportOptions& options) {
  if (plan.action == ImportAction::refuse)
    throw Failure(ExitCode::file, refusal_text(plan, options.mode, options.file));
}

void ask_before_replacing(const ImportOptions& options, const ImportRules& rules, const std::vector<DrawRow>& rows,
                          const Context& context) {
  if (options.mode != ImportMode::replace || options.consent == Consent::given) return;
  const ImportPlan plan = plan_to_come(context.options.database, rows, rules);
  if (plan.gone + plan.rewritten == 0) return;
  ask_at_terminal(options.consent,
                  "replace " + counted(plan.held, "row") + ", of which " + std::to_string(plan.gone) + " go and " +
                      std::to_string(plan.rewritten) + " change",
                  context.err);
}

ImportOutcome bring_in(const std::vector<DrawRow>& rows, const ImportRules& rules, const Context& context) {
  const ArchiveSession session = ArchiveSession::for_import(context.options.database);
  ProgressBar bar(context.err, "import");
  return import_draws(session, rows, rules, [&](size_t stored, size_t all) { bar.show(stored, all); });
}

void say(std::ostream& err, const ImportPlan& plan, const std::string& verb) {
  if (plan.action == ImportAction::rewrite) {
    if (const std::string text = removal_text(plan, verb); !text.empty()) err << "vestara: warning: " << text << "\n";
    if (plan.missing_manual == MissingManual::lose) warn_of_lost(err, plan.manual, verb);
  }
  for (const std::string& note : {join_text(plan), contest_text(plan)})
    if (!note.empty()) err << "vestara: " << note << "\n";
}

}  // namespace

ExitCode run_import(const ImportOptions& options, const Context& context) {
  const std::string name = source_name(options.file);
  const DrawFile file = parse_draw_file(read_source(options.file), name);
  refuse_rejected(file, name);
  const std::string& database = context.options.database;
  const ImportRules rules = rules_of(options, database);
  if (options.dry_run) {
    const ImportOutcome outcome{plan_to_come(database, file.draws.rows, rules), {}};
    refuse_loss(outcome.plan, options);
    write_report(context.out, summary(file, outcome, "checked, nothing changed"), context.style());
    say(context.err, outcome.plan, "would go");
    return ExitCode::ok;
  }
  ask_before_replacing(options, rules, file.draws.rows, context);
  const ImportOutcome outcome = bring_in(file.draws.rows, rules, context);
  refuse_loss(outcome.plan, options);
  write_report(context.out, summary(file, outcome, outcome.plan.kept == 0 ? "imported" : "joined"), context.style());
  say(context.err, outcome.plan, "went");
  return ExitCode::ok;
}

}  // namespace vestara::host
