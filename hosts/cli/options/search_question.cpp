#include "hosts/cli/options/search_question.h"

namespace vestara::host {

SearchOptions search_question(const SearchWords& words) {
  SearchOptions options;
  options.numbers = numbers_value(words.numbers);
  options.hits = hits_value(words.hits);
  options.draws = {wheels_value(words.wheels), day_bound("--from", words.from), day_bound("--to", words.to)};
  check_range(options.draws.from, options.draws.to);
  check_hits(options.numbers, options.hits);
  return options;
}

}  // namespace vestara::host
