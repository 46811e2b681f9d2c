#include "hosts/cli/commands/stored_request.h"

#include "automation/coercion.h"
#include "automation/date.h"
#include "vestara/keeping/stored_value.h"

namespace vestara::host {
namespace {

/// A date without its time of day, which bounds do not have.
std::string bound_of(const automation::Variant& value) {
  const auto date = automation::date_in(value);
  return date ? automation::iso_day(*date) : stored_text(value);
}

}  // namespace

SearchRequest request_of(const StoredSearch& stored) {
  const std::string wheels = stored_text(stored.wheels);
  return search_request({{stored_text(stored.numbers)},
                         stored_text(stored.hits),
                         wheels.empty() ? "all" : wheels,
                         bound_of(stored.from),
                         bound_of(stored.to)});
}

}  // namespace vestara::host
