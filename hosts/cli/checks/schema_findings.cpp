#include "hosts/cli/checks/schema_findings.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "automation/text.h"

namespace vestara::host {
namespace {

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
std::vector<std::string> names_of(const std::vector<SchemaGap>& gaps, SchemaGap::Kind kind) {
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

}  // namespace

Findings schema_findings(const SchemaFacts& facts) {
  Findings findings;
  for (const KindWords& kind : kinds)
    if (const auto names = names_of(facts.gaps, kind.kind); !names.empty())
      findings.push_back(
          {std::string(kind.what), static_cast<int64_t>(names.size()), joined(names), std::string(kind.remedy)});
  if (facts.refusal)
    findings.push_back({"the archive cannot be checked", 1, *facts.refusal, "see what the database says"});
  for (const UnreadableTable& unreadable : facts.unreadable)
    findings.push_back({"table " + std::string(unreadable.table) + " cannot be read", 1, unreadable.reason,
                        "give the user the right to read it, or restore it"});
  return findings;
}

std::string missing_tables(const Archive& archive) {
  const std::vector<SchemaGap> gaps = archive.connector()->SchemaGaps().value_or(std::vector<SchemaGap>());
  std::string text;
  if (const auto tables = names_of(gaps, SchemaGap::Kind::table); !tables.empty()) text = "table " + joined(tables);
  if (const auto columns = names_of(gaps, SchemaGap::Kind::column); !columns.empty())
    text.append(text.empty() ? "" : ", ").append("column ").append(joined(columns));
  return text.empty() ? archive.reason() : text + " missing";
}

}  // namespace vestara::host
