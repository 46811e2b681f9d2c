#include "hosts/cli/checks/schema_findings.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "automation/text.h"

namespace vestara::host {
namespace {

using Gaps = std::vector<SchemaGap>;

struct KindWords {
  SchemaGap::Kind kind;
  std::string_view what;
  std::string_view remedy;
};

constexpr std::string_view makes_them = "vestara call Dorvane.DbConnector CreateSchema, with the same --db, makes them";

constexpr std::array<KindWords, 4> kinds{{
    {SchemaGap::Kind::table, "tables are missing", makes_them},
    {SchemaGap::Kind::column, "columns are missing",
     "add them, or vestara export from the program that made the archive"},
    {SchemaGap::Kind::index, "indexes are missing: answers are right, only slow", makes_them},
    {SchemaGap::Kind::wheel, "wheels are missing from ruote", makes_them},
}};

/// What is missing of one kind, columns behind their table.
std::vector<std::string> names_of(const Gaps& gaps, SchemaGap::Kind kind) {
  std::vector<std::string> names;
  for (const SchemaGap& gap : gaps)
    if (gap.kind == kind)
      names.push_back(kind == SchemaGap::Kind::column ? automation::concatenated({gap.table, ".", gap.name})
                                                      : std::string(gap.name));
  return names;
}

std::string joined(const std::vector<std::string>& names) {
  constexpr size_t most = 5;
  std::string text;
  for (size_t i = 0; i < std::min(names.size(), most); ++i) text.append(i == 0 ? "" : ", ").append(names[i]);
  if (names.size() > most) text += " and " + std::to_string(names.size() - most) + " more";
  return text;
}

bool lacks_of(const Gaps& gaps, const ArchiveTable& table) {
  return std::any_of(gaps.begin(), gaps.end(), [&](const SchemaGap& gap) {
    return gap.table == table.name && (gap.kind == SchemaGap::Kind::table || gap.kind == SchemaGap::Kind::column);
  });
}

/// Tables that the schema has and yet cannot be read, for want of a right or a file that is damaged.
void add_unreadable(const ArchiveSession& session, const Gaps& gaps, Findings& findings) {
  for (const ArchiveTable& table : archive_tables()) {
    if (lacks_of(gaps, table) || session.can_read(table)) continue;
    findings.push_back({"table " + std::string(table.name) + " cannot be read", 1, session.connector()->LastError(),
                        "give the user the right to read it, or restore it"});
  }
}

}  // namespace

Findings schema_findings(const ArchiveSession& session) {
  const auto known = session.connector()->SchemaGaps();
  const Gaps gaps = known.value_or(Gaps());
  Findings findings;
  for (const KindWords& kind : kinds)
    if (const auto names = names_of(gaps, kind.kind); !names.empty())
      findings.push_back(
          {std::string(kind.what), static_cast<int64_t>(names.size()), joined(names), std::string(kind.remedy)});
  if (!known)
    findings.push_back(
        {"the archive cannot be checked", 1, session.connector()->LastError(), "see what the database says"});
  add_unreadable(session, gaps, findings);
  return findings;
}

std::string missing_tables(const ArchiveSession& session) {
  const Gaps gaps = session.connector()->SchemaGaps().value_or(Gaps());
  std::string text;
  if (const auto tables = names_of(gaps, SchemaGap::Kind::table); !tables.empty()) text = "table " + joined(tables);
  if (const auto columns = names_of(gaps, SchemaGap::Kind::column); !columns.empty())
    text.append(text.empty() ? "" : ", ").append("column ").append(joined(columns));
  return text.empty() ? session.connector()->LastError() : text + " missing";
}

}  // namespace vestara::host
