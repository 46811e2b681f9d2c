#include "hosts/cli/archive/import_words.h"
#include "hosts/cli/archive/removal_place.h"
#include "hosts/cli/command.h"
#include "hosts/cli/options/command_parts.h"
#include "hosts/cli/terminal/progress_bar.h"
#include "vestara/files/draw_file.h"
#include "vestara/files/file_source.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/import/archive_import.h"

namespace vestara::host {
namespace {

struct ImportOptions {
  std::string file;  ///< "-" is standard input
  bool add = false;
  bool replace = false;
  bool dry_run = false;
  bool keep_manual = false;
  bool no_backup = false;
  Consent consent = Consent::ask;
};

void add_import(CLI::App& app, ImportOptions& options) {
  argument(app, "FILE", options.file, "the operator's text file, CSV or an update file, plain or zipped; - is stdin")
      ->required();
  app.add_flag("--add", options.add, "keep what the file does not have; a row that differs refuses the import");
  app.add_flag("--replace", options.replace, "the file takes the archive's place; asks at a terminal");
  app.add_flag("--dry-run", options.dry_run, "check the file and say what would change");
  app.add_flag("--keep-manual", options.keep_manual, "keep the draws entered by hand that the file does not have");
  app.add_flag("--no-backup", options.no_backup, "do not keep what is removed");
  add_yes(app, options.consent, "replace without asking");
}

ImportRules rules_of(const ImportOptions& options, const Context& context) {
  ImportRules rules;
  if (options.add) rules.mode = ImportMode::add;
  if (options.replace) rules.mode = ImportMode::replace;
  if (options.keep_manual) rules.missing_manual = MissingManual::keep;
  if (!options.no_backup) rules.backup = [url = context.url()] { return removal_place(url); };
  return rules;
}

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

/// What an import would do; an archive that is not there yet holds nothing.
ImportPlan plan_to_come(const Context& context, const std::vector<DrawRow>& rows, const ImportRules& rules) {
  if (ArchiveSession::may_exist(context.settings.database)) {
    const ArchiveSession session = context.open_archive();
    if (session.has_tables()) return plan_for(session, rows, rules);
  }
  return plan_import({}, {}, rows, rules.mode, rules.missing_manual);
}

void refuse_loss(const ImportPlan& plan, const ImportRules& rules, const std::string& file) {
  if (plan.action == ImportAction::refuse) throw Failure(FailureKind::file, refusal_text(plan, rules.mode, file));
}

void ask_before_replacing(Consent consent, const ImportRules& rules, const std::vector<DrawRow>& rows,
                          const Context& context) {
  if (rules.mode != ImportMode::replace || consent == Consent::given) return;
  const ImportPlan plan = plan_to_come(context, rows, rules);
  if (plan.gone + plan.rewritten == 0) return;
  ask_at_terminal(consent,
                  "replace " + counted(plan.held, "row") + ", of which " + std::to_string(plan.gone) + " go and " +
                      std::to_string(plan.rewritten) + " change",
                  context.in, context.err);
}

ImportOutcome bring_in(const std::vector<DrawRow>& rows, const ImportRules& rules, const Context& context) {
  const ArchiveSession session = context.open_or_begin_archive();
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

ExitCode run_import(const ImportOptions& options, const Context& context) {
  if (options.add && options.replace)
    throw Failure(FailureKind::argument, "--add and --replace exclude each other; give one of them");
  const std::string name = source_name(options.file);
  const DrawFile file = parse_draw_file(read_source(options.file), name);
  refuse_rejected(file, name);
  const ImportRules rules = rules_of(options, context);
  if (options.dry_run) {
    const ImportOutcome outcome{plan_to_come(context, file.draws.rows, rules), {}};
    refuse_loss(outcome.plan, rules, options.file);
    context.show(summary(file, outcome, "checked, nothing changed"));
    say(context.err, outcome.plan, "would go");
    return ExitCode::ok;
  }
  ask_before_replacing(options.consent, rules, file.draws.rows, context);
  const ImportOutcome outcome = bring_in(file.draws.rows, rules, context);
  refuse_loss(outcome.plan, rules, options.file);
  context.show(summary(file, outcome, outcome.plan.kept == 0 ? "imported" : "joined"));
  say(context.err, outcome.plan, "went");
  return ExitCode::ok;
}

}  // namespace

extern const Command import_command{
    "import", Group::draws, "Bring the draws of a file into the archive",
    "vestara import storico.zip\n\n"
    "Without --add or --replace nothing is lost: the import is refused when a row of the archive would go\n"
    "or change. A file that begins later than the archive and agrees with it on a hundred rows is added\n"
    "to it. What is removed is kept in a file beside the archive, the last three times: its name ends in\n"
    ".removed-TIME.csv, and import --add takes it.",
    bound<add_import, run_import>};

}  // namespace vestara::host
