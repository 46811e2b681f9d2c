#include <nlohmann/json.hpp>

#include "hosts/cli/output/json_text.h"
#include "hosts/cli/output/output_forms.h"

namespace vestara::host {
namespace {

using Json = nlohmann::ordered_json;

Json value_of(const Cell& cell) {
  if (const auto* number = std::get_if<int64_t>(&cell)) return *number;
  if (const auto* number = std::get_if<double>(&cell)) return *number;
  if (const auto* text = std::get_if<std::string>(&cell)) return *text;
  return nullptr;
}

void put_facts(Json& object, const std::vector<Fact>& facts) {
  for (const Fact& fact : facts) object[fact.name] = value_of(fact.value);
}

void put_row(Json& object, const Report& report, const std::vector<Cell>& row) {
  for (size_t i = 0; i < row.size(); ++i) object[report.columns[i]] = value_of(row[i]);
}

std::string text_of(const Json& object, int indent) { return json_text(object, indent) + "\n"; }

constexpr int one_line = -1;

std::string line_of(const std::string& kind, const std::vector<Fact>& facts) {
  Json object = {{"kind", kind}};
  put_facts(object, facts);
  return text_of(object, one_line);
}

}  // namespace

std::string report_as_json(const Report& report) {
  Json object = Json::object();
  put_facts(object, report.facts);
  if (!report.listing.empty()) {
    Json& rows = object[report.listing] = Json::array();
    for (const auto& row : report.rows) put_row(rows.emplace_back(Json::object()), report, row);
  }
  for (const FactBlock& block : report.blocks) put_facts(object[block.name] = Json::object(), block.facts);
  constexpr int indent = 2;
  return text_of(object, indent);
}

std::string report_as_json_lines(const Report& report) {
  std::string out;
  if (!report.facts.empty()) out += line_of("summary", report.facts);
  for (const auto& row : report.rows) {
    Json object = {{"kind", report.row_kind}};
    put_row(object, report, row);
    out += text_of(object, one_line);
  }
  for (const FactBlock& block : report.blocks) out += line_of(block.name, block.facts);
  return out;
}

}  // namespace vestara::host
