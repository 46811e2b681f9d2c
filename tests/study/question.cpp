#include "tests/study/question.h"

#include <algorithm>
#include <cmath>

#include "automation/coercion.h"
#include "automation/error.h"
#include "tests/support/values.h"
#include "vestara/foundation/connector.h"

namespace study_test {

using automation::InvokeKind;
using automation::Missing;
using automation::Object;
using automation::Ref;
using automation::Variant;
using testing_support::describe;

namespace {

Variant called(Object& object, const char* member, std::vector<Variant> arguments = {}) {
  return object.call(member, InvokeKind::get, arguments);
}

Table walked_by_interface(const Ref<vestara::RecordSet>& rows) {
  Table table;
  for (int32_t i = 0; i < rows->column_count(); ++i) table.columns.push_back(rows->column_name({i}));
  for (; !rows->at_end(); rows->move_next()) {
    auto& row = table.rows.emplace_back();
    for (int32_t i = 0; i < rows->column_count(); ++i) row.push_back(rows->value({i}));
  }
  return table;
}

Table walked_by_name(const Ref<Object>& rows) {
  Table table;
  const Variant fields = called(*rows, "Fields");
  const auto& list = *fields.get_if<Ref<Object>>();
  const int32_t count = automation::to_long(called(*list, "Count"));
  for (int32_t i = 0; i < count; ++i)
    table.columns.push_back(automation::to_text(called(**called(*list, "Item", {i}).get_if<Ref<Object>>(), "Name")));
  while (!automation::to_boolean(called(*rows, "EOF"))) {
    auto& row = table.rows.emplace_back();
    for (const auto& name : table.columns) row.push_back(automation::to_plain(called(*list, "Item", {name})));
    called(*rows, "MoveNext");
  }
  return table;
}

bool is_near(double wanted, double seen, bool is_difference) {
  const double size = std::max({std::abs(wanted), std::abs(seen), is_difference ? 1.0 : 1e-290});
  return std::abs(wanted - seen) <= 1e-9 * size;
}

bool agrees(const Variant& wanted, const Variant& seen, const std::string& column) {
  if (const auto* number = wanted.get_if<double>(); number && seen.get_if<double>())
    return is_near(*number, *seen.get_if<double>(), column == "z" || column == "statistic");
  return wanted == seen;
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const auto& name : names) text += (text.empty() ? "" : " ") + name;
  return text;
}

std::string shown_row(const std::vector<Variant>& row) {
  std::string text;
  for (const auto& value : row) text += (text.empty() ? "" : " | ") + describe(value);
  return text;
}

}  // namespace

const std::map<std::string, std::vector<std::string>>& members() {
  static const std::map<std::string, std::vector<std::string>> table{
      {"Draws", {"Wheels", "Since", "Until"}},
      {"Search", {"Numbers", "Hits", "Wheels", "Since", "Until"}},
      {"Numbers", {"Wheels", "Since", "Until", "Together"}},
      {"Groups", {"Size", "Wheels", "Since", "Until", "Together", "By", "Top"}},
      {"Sets", {"Sets", "Hits", "Wheels", "Since", "Until", "Together"}},
      {"Gaps", {"Numbers", "Hits", "Wheels", "Since", "Until", "Together"}},
      {"Fairness", {"Wheels", "Since", "Until"}},
      {"Odds", {"Count", "Wheels"}}};
  return table;
}

std::string shown(const Question& question) {
  std::string text;
  for (const auto& [name, value] : question.given) text += (text.empty() ? "" : ", ") + name + ":=" + describe(value);
  return question.member + "(" + text + ")";
}

Variant ask(Object& study, const Question& question) {
  std::vector<Variant> arguments;
  std::vector<std::string_view> names;
  size_t place = 0;
  for (const auto& name : members().at(question.member)) {
    const auto value = question.given.find(name);
    const bool by_name = place++ >= question.positional;
    if (by_name && value != question.given.end()) names.emplace_back(name);
    if (by_name && value == question.given.end()) continue;
    arguments.push_back(value == question.given.end() ? Variant(Missing{}) : value->second);
  }
  if (names.empty())
    while (!arguments.empty() && arguments.back().is_missing()) arguments.pop_back();
  return study.call(question.member, InvokeKind::method, arguments, names);
}

Table rows_of(const Variant& answer, Walk walk) {
  const auto* object = answer.get_if<Ref<Object>>();
  if (!object || !*object) throw automation::object_not_set();
  if (walk == Walk::by_name) return walked_by_name(*object);
  const auto rows = automation::cast<vestara::RecordSet>(*object);
  if (!rows) throw automation::type_mismatch();
  return walked_by_interface(rows);
}

std::string difference(const Table& wanted, const Table& seen) {
  if (wanted.columns != seen.columns) return "columns " + joined(wanted.columns) + "\n   not " + joined(seen.columns);
  for (size_t i = 0; i < std::min(wanted.rows.size(), seen.rows.size()); ++i)
    for (size_t j = 0; j < wanted.columns.size(); ++j)
      if (!agrees(wanted.rows[i].at(j), seen.rows[i].at(j), wanted.columns[j]))
        return "row " + std::to_string(i) + ", column " + wanted.columns[j] + ": wanted " +
               describe(wanted.rows[i][j]) + ", seen " + describe(seen.rows[i][j]) + "\n  wanted row " +
               shown_row(wanted.rows[i]) + "\n  seen row   " + shown_row(seen.rows[i]);
  if (wanted.rows.size() == seen.rows.size()) return {};
  return std::to_string(seen.rows.size()) + " rows, not " + std::to_string(wanted.rows.size());
}

}  // namespace study_test
