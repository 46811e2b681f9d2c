#include "vestara/foundation/selection.h"

#include <algorithm>

#include "automation/coercion.h"
#include "automation/text.h"

namespace vestara {

WheelFilter WheelFilter::listed(std::string_view wheels) {
  std::vector<std::string> quoted;
  if (!automation::is_blank(wheels))
    for (const std::string_view alias : automation::split(wheels, ','))
      quoted.push_back(automation::concatenated({"'", alias, "'"}));
  return WheelFilter(std::move(quoted));
}

std::string WheelFilter::quoted() const {
  std::string list;
  for (const std::string& alias : quoted_) list.append(list.empty() ? "" : ",").append(alias);
  return list;
}

std::string WheelFilter::plain() const {
  std::string list = quoted();
  std::erase(list, '\'');
  return list;
}

std::string WheelFilter::terms(std::string_view prefix, std::string_view suffix) const {
  std::string terms;
  for (const std::string& alias : quoted_)
    if (!automation::is_blank(alias))
      terms.append(terms.empty() ? "" : " OR ").append(prefix).append(alias).append(suffix);
  return terms;
}

DateBound DateBound::given(const automation::Variant& value) {
  if (value.is_object()) return given(automation::to_plain(value));
  DateBound bound(automation::date_in(value));
  bound.is_set_ = !value.is_missing() && !value.is_null();
  return bound;
}

}  // namespace vestara
