#include "hosts/cli/checks/schema_findings.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "automation/text.h"

namespace vestara::host {
namespace {

struct Kind {
  std::string_view name;
  std::string_view what;
  std::string_view remedy;
};

constexpr std::string_view makes_them = "vestara call Dorvane.DbConnector CreateSchema, with the same --db, makes them";

constexpr std::array<Kind, 4> kinds{{
    {"table", "tables are missing", makes_them},
    {"column", "columns are missing", "add them, or vestara export from the program that made the archive"},
    {"index", "indexes are missing: answers are right, only slow", makes_them},
    {"wheel", "wheels are missing from ruote", makes_them},
}};

/// The names of what is missing, by kind: the connector writes "index NAME is missing" and more behind it.
std::map<std::string, std::vector<std::string>, std::less<>> missing_names(const std::string& lines) {
  std::map<std::string, std::vector<std::string>, std::less<>> names;
  for (const std::string_view line : automation::split(lines, '\n')) {
    const auto words = automation::split(line, ' ');
    if (words.size() > 1) names[std::string(words[0])].emplace_back(words[1]);
  }
  return names;
}

std::string joined(const std::vector<std::string>& names) {
  constexpr size_t most = 5;
  std::string text;
  for (size_t i = 0; i < std::min(names.size(), most); ++i) text.append(i == 0 ? "" : ", ").append(names[i]);
  if (names.size() > most) text += " and " + std::to_string(names.size() - most) + " more";
  return text;
}

/// Tables that the schema has and yet cannot be read, for want of a right or a file that is damaged.
void add_unreadable(const ArchiveSession& session, const std::string& missing, Findings& findings) {
  for (const ArchiveTable& table : archive_tables()) {
    const std::string name(table.name);
    const bool is_known = missing.find("table " + name + " ") != std::string::npos ||
                          missing.find("column " + name + ".") != std::string::npos;
    if (is_known || session.can_read(table)) continue;
    findings.push_back({"table " + name + " cannot be read", 1, session.connector()->LastError(),
                        "give the user the right to read it, or restore it"});
  }
}

}  // namespace

Findings schema_findings(const ArchiveSession& session) {
  const std::string missing = session.connector()->CheckSchema();
  const auto names = missing_names(missing);
  Findings findings;
  for (const Kind& kind : kinds)
    if (const auto found = names.find(kind.name); found != names.end())
      findings.push_back({std::string(kind.what), static_cast<int64_t>(found->second.size()), joined(found->second),
                          std::string(kind.remedy)});
  if (findings.empty() && !missing.empty())
    findings.push_back({missing, 1, session.connector()->LastError(), "see what the database says"});
  add_unreadable(session, missing, findings);
  return findings;
}

std::string missing_tables(const ArchiveSession& session) {
  const auto names = missing_names(session.connector()->CheckSchema());
  std::string text;
  for (const std::string_view kind : {"table", "column"})
    if (const auto found = names.find(kind); found != names.end())
      text.append(text.empty() ? "" : ", ").append(kind).append(" ").append(joined(found->second));
  return text.empty() ? session.connector()->LastError() : text + " missing";
}

}  // namespace vestara::host
