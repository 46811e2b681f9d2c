#include "hosts/cli/options/search_request.h"

#include "hosts/cli/options/command_parts.h"

namespace vestara::host {

void add_search_words(CLI::App& app, SearchWords& words) {
  add_numbers(app, words.numbers);
  add_hits_and_wheels(app, words.hits, words.wheels);
  add_range(app, words.from, words.to);
}

SearchRequest search_request(const SearchWords& words) {
  SearchRequest request;
  request.numbers = numbers_value(words.numbers);
  request.hits = hits_value(words.hits);
  request.draws = {wheels_value(words.wheels), day_bound("--from", words.from), day_bound("--to", words.to)};
  check_range(request.draws.from, request.draws.to);
  check_hits(request.numbers, request.hits);
  return request;
}

}  // namespace vestara::host
