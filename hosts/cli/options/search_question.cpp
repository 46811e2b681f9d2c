#include "hosts/cli/options/search_question.h"

namespace vestara::host {

SearchOptions search_question(const SearchWords& words) {
  SearchOptions options;
  options.numbers = numbers_value(words.numbers);
  options.hits = hits_value(words.hits);
  options.wheels = wheels_value(words.wheels);
  options.from = day_bound("--from", words.from);
  options.to = day_bound("--to", words.to);
  check_range(options.from, options.to);
  check_hits(options.numbers, options.hits);
  return options;
}

automation::Variant date_bound(std::optional<int32_t> day) {
  if (!day) return automation::Missing{};
  return automation::Date::from_day(*day);
}

}  // namespace vestara::host
