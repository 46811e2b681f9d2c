#include <iterator>
#include <optional>
#include <vector>

#include "automation/date.h"
#include "hosts/cli/archive/archive_url.h"
#include "hosts/cli/checks/day_findings.h"
#include "hosts/cli/checks/engine_findings.h"
#include "hosts/cli/checks/row_findings.h"
#include "hosts/cli/checks/schema_findings.h"
#include "hosts/cli/checks/soundness.h"
#include "hosts/cli/command.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/copy/table_reader.h"

namespace vestara::host {
namespace {

ArchiveSession connect(const Context& context, const std::string& url) {
  try {
    return context.open_archive();
  } catch (const Failure& failure) {
    throw Failure(failure.kind(), std::string(failure.what()) + " (" + shown_url(url) + ")");
  }
}

void append(Findings& all, Findings more) {
  all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

Cell day_cell(const std::optional<int32_t>& day) { return day ? Cell(shown_day(*day)) : Cell(); }

void examine_dates(const ArchiveSession& session, Report& report, Findings& findings) {
  DateFacts dates;
  std::vector<DrawDay> days;
  if (session.can_read(archive_tables().front())) {
    dates = check_dates(session);
    days = draw_days(session);
  }
  report.facts.push_back({"draw_dates", dates.dates});
  report.facts.push_back({"first_date", day_cell(dates.first)});
  report.facts.push_back({"last_date", day_cell(dates.last)});
  report.facts.push_back({"undrawn_wheels", dates.lacking});
  report.facts.push_back({"stray_dates", known_stray_days(days)});
  append(findings, date_findings(dates));
  append(findings, day_findings(check_days(days, automation::now().day())));
}

void count_rows(const ArchiveSession& session, Report& report) {
  FactBlock rows{"rows", {}};
  for (const ArchiveTable& table : archive_tables())
    rows.facts.push_back({std::string(table.name),
                          session.can_read(table) ? Cell(row_count(session, table)) : Cell(Absent{"unreadable"})});
  if (session.can_read(marks_table()))
    rows.facts.push_back({std::string(marks_table().name), row_count(session, marks_table())});
  report.blocks.push_back(std::move(rows));
}

void examine_changes(const ArchiveSession& session, const std::string& url, Report& report, Findings& findings) {
  if (asks_read_only(url)) {
    report.facts.push_back({"changes", "not asked for, mode=ro"});
    return;
  }
  const std::string why = why_unchangeable(session);
  report.facts.push_back({"changes", why.empty() ? "possible" : "refused"});
  append(findings, change_findings(why));
}

void list_findings(const Findings& findings, Report& report) {
  report.facts.push_back({"findings", static_cast<int64_t>(findings.size())});
  report.listing = "faults";
  report.row_kind = "fault";
  report.columns = {"what", "count", "example", "remedy"};
  for (const Finding& finding : findings)
    report.rows.push_back({finding.what, finding.count, finding.example, finding.remedy});
}

ExitCode run_doctor(const Context& context) {
  const std::string url = context.url();
  const ArchiveSession session = connect(context, url);
  Report report;
  report.facts = {{"archive", shown_url(url)}, {"connection", "open"}};
  Findings findings = file_findings(session);
  append(findings, schema_findings(check_schema(session)));
  append(findings, trigger_findings(find_triggers(session, url.substr(0, url.find(':')))));
  append(findings, column_findings(uncomparable_columns(session)));
  examine_changes(session, url, report, findings);
  examine_dates(session, report, findings);
  count_rows(session, report);
  append(findings, row_findings(check_rows(session)));
  list_findings(findings, report);
  context.show(report);
  return findings.empty() ? ExitCode::ok : ExitCode::database;
}

}  // namespace

extern const Command doctor_command{"doctor", Group::archive,
                                    "Look for what is wrong with the archive; changes nothing",
                                    "vestara doctor --db sqlite:archive.sqlite", bound<run_doctor>};

}  // namespace vestara::host
