#include "hosts/cli/commands/stored_request.h"

#include <gtest/gtest.h>

#include "hosts/cli/failure.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

using automation::Date;
using automation::Null;
using automation::Variant;

StoredSearch usual() {
  return {int32_t{7}, "name", "5,12,33", int16_t{2}, "BA,NA", Null{}, Null{}, Date::from_day(45000)};
}

/// "5,12,33 2 BA,NA from..to", or what is wrong with it.
std::string meaning(const StoredSearch& search) {
  try {
    const SearchRequest options = request_of(search);
    const auto day = [](std::optional<int32_t> bound) { return bound ? shown_day(*bound) : std::string(); };
    return options.numbers.text + " " + std::to_string(options.hits) + " " +
           (options.draws.wheels.all ? "all" : options.draws.wheels.codes) + " " + day(options.draws.from) + ".." +
           day(options.draws.to);
  } catch (const Failure& failure) {
    const std::string what = failure.what();
    return "wrong: " + what.substr(0, what.find("; "));
  }
}

TEST(StoredQuestion, WhatStoredSearchesMean) {
  struct Row {
    Variant StoredSearch::*field;
    Variant value;
    const char* meaning;
  };
  using Stored = StoredSearch;
  const Variant half_past = Date::from_serial(38392.5);
  const std::vector<Row> rows{{&Stored::name, "anything", "5,12,33 2 BA,NA .."},
                              {&Stored::numbers, " 5, 12", "5,12 2 BA,NA .."},
                              {&Stored::numbers, "5,12,", "5,12 2 BA,NA .."},
                              {&Stored::numbers, "5;12", "wrong: NUMBERS: \"5;12\" is not one of 1 to 90"},
                              {&Stored::numbers, "", "wrong: NUMBERS: none given"},
                              {&Stored::numbers, Null{}, "wrong: NUMBERS: none given"},
                              {&Stored::numbers, "5", "wrong: --hits 2 cannot come of 1 number"},
                              {&Stored::numbers, int32_t{53}, "wrong: --hits 2 cannot come of 1 number"},
                              {&Stored::hits, int16_t{0}, "wrong: --hits \"0\" is not known"},
                              {&Stored::hits, Null{}, "wrong: --hits \"\" is not known"},
                              {&Stored::hits, "1", "5,12,33 1 BA,NA .."},
                              {&Stored::wheels, "", "5,12,33 2 all .."},
                              {&Stored::wheels, Null{}, "5,12,33 2 all .."},
                              {&Stored::wheels, " ", "wrong: --wheels \" \" is not known"},
                              {&Stored::wheels, "BA,XX", "wrong: --wheels \"XX\" is not known"},
                              {&Stored::from, Date::from_day(38392), "5,12,33 2 BA,NA 2005-02-09.."},
                              {&Stored::to, half_past, "5,12,33 2 BA,NA ..2005-02-09"},
                              {&Stored::from, "9/2/2005", "5,12,33 2 BA,NA 2005-02-09.."},
                              {&Stored::to, "soon", "wrong: --to \"soon\" is no date"},
                              {&Stored::to, int32_t{38392}, "wrong: --to \"38392\" is no date"}};
  for (const Row& row : rows) {
    StoredSearch search = usual();
    search.*row.field = row.value;
    EXPECT_EQ(meaning(search), row.meaning);
  }
  StoredSearch backwards = usual();
  backwards.from = Date::from_day(38393);
  backwards.to = Date::from_day(38392);
  EXPECT_EQ(meaning(backwards), "wrong: --from 2005-02-10 is later than --to 2005-02-09");
}

}  // namespace
}  // namespace vestara::host
