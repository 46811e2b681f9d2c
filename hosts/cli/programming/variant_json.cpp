#include "hosts/cli/programming/variant_json.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "automation/member.h"
#include "vestara/foundation/connector.h"
#include "vestara/study/widened.h"

namespace vestara::host {
namespace {

using automation::Array;
using automation::Date;
using automation::Object;
using automation::Ref;
using automation::Variant;
using Json = nlohmann::ordered_json;

std::string iso_moment(Date date) {
  std::string text = automation::iso_day(date);
  if (!date.has_time()) return text;
  const automation::CivilTime parts = date.civil();
  std::array<char, 40> time{};
  std::snprintf(time.data(), time.size(), "T%02d:%02d:%02d", parts.hour, parts.minute, parts.second);
  return text + time.data();
}

/// The elements whose first indexes, as offsets, are `place`.
Json elements(const Array& array, std::vector<int32_t>& place) {
  if (place.size() == array.bounds().size()) {
    std::vector<int32_t> indexes;
    for (size_t i = 0; i < place.size(); ++i) indexes.push_back(array.bounds()[i].lower + place[i]);
    return json_of(array.at(indexes));
  }
  Json list = Json::array();
  const int32_t count = array.bounds()[place.size()].count;
  for (int32_t i = 0; i < count; ++i) {
    place.push_back(i);
    list.push_back(elements(array, place));
    place.pop_back();
  }
  return list;
}

/// Column names made different: n, n_2, n_3.
std::vector<std::string> keys_of(RecordSet& rows) {
  std::vector<std::string> keys;
  for (Column column; column.index < rows.column_count(); ++column.index) {
    const std::string name = rows.column_name(column);
    std::string key = name;
    for (int copy = 2; std::find(keys.begin(), keys.end(), key) != keys.end(); ++copy)
      key = name + "_" + std::to_string(copy);
    keys.push_back(std::move(key));
  }
  return keys;
}

Json rows_of(RecordSet& rows, size_t most) {
  Json list = Json::array();
  const auto keys = keys_of(rows);
  for (; list.size() < most && !rows.at_end(); rows.move_next()) {
    Json& row = list.emplace_back(Json::object());
    for (size_t i = 0; i < keys.size(); ++i) row[keys[i]] = json_of(rows.value({static_cast<int32_t>(i)}));
  }
  return list;
}

Json object_json(const Ref<Object>& object, size_t most_rows) {
  if (!object) return nullptr;
  if (auto* rows = dynamic_cast<RecordSet*>(object.get()); rows && rows->is_open()) return rows_of(*rows, most_rows);
  return {{"object", object->description().identifier()}};
}

struct ToJson {
  size_t most_rows;

  Json operator()(automation::Empty) const { return nullptr; }
  Json operator()(automation::Null) const { return nullptr; }
  Json operator()(automation::Missing) const { return nullptr; }
  Json operator()(float value) const { return widened(value); }
  Json operator()(Date value) const { return iso_moment(value); }
  Json operator()(const Ref<Object>& value) const { return object_json(value, most_rows); }
  Json operator()(const Array& value) const {
    std::vector<int32_t> place;
    return value.bounds().empty() ? Json::array() : elements(value, place);
  }
  template <class T>
  Json operator()(const T& value) const {
    return value;
  }
};

}  // namespace

Json json_of(const Variant& value, size_t most_rows) { return std::visit(ToJson{most_rows}, value.storage()); }

}  // namespace vestara::host
