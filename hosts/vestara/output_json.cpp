#include <nlohmann/json.hpp>

#include "hosts/vestara/output_forms.h"

namespace vestara::host {
namespace {

using Json = nlohmann::ordered_json;

Json value_of(const Cell& cell) {
  if (const auto* number = std::get_if<int64_t>(&cell)) return *number;
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  return nullptr;
}

void put_facts(Json& object, const Report& report) {
  for (const Fact& fact : report.facts) object[fact.name] = value_of(fact.value);
}

void put_row(Json& object, const Report& report, const std::vector<Cell>& row) {
  for (size_t i = 0; i < row.size(); ++i) object[report.columns[i]] = value_of(row[i]);
}

/// Bytes that are no UTF-8 become replacement characters.
std::string text_of(const Json& object, int indent) {
  return object.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

std::string report_as_json(const Report& report) {
  Json object = Json::object();
  put_facts(object, report);
  if (!report.listing.empty()) {
    Json& rows = object[report.listing] = Json::array();
    for (const auto& row : report.rows) put_row(rows.emplace_back(Json::object()), report, row);
  }
  constexpr int indent = 2;
  return text_of(object, indent);
}

std::string report_as_json_lines(const Report& report) {
  constexpr int one_line = -1;
  std::string out;
  if (!report.facts.empty()) {
    Json summary = {{"kind", "summary"}};
    put_facts(summary, report);
    out += text_of(summary, one_line);
  }
  for (const auto& row : report.rows) {
    Json object = {{"kind", report.row_kind}};
    put_row(object, report, row);
    out += text_of(object, one_line);
  }
  return out;
}

}  // namespace vestara::host
