#include "hosts/cli/options/draw_arguments.h"

#include <gtest/gtest.h>

#include "hosts/cli/failure.h"
#include "vestara/foundation/message_text.h"

namespace vestara::host {
namespace {

DrawArguments whole_draw() {
  DrawArguments given;
  given.date = "22/8/2026";
  for (size_t i = 0; i < given.wheels.size(); ++i) given.wheels[i] = std::to_string(i + 1) + ",50,60,70,80";
  return given;
}

TEST(DrawArguments, AWholeDraw) {
  DrawArguments given = whole_draw();
  const auto options = std::get<DrawSaveOptions>(draw_options("save", given));
  EXPECT_EQ(shown_day(options.day), "2026-08-22");
  EXPECT_EQ(options.contest, std::nullopt);
  EXPECT_EQ(options.consent, Consent::ask);
  ASSERT_EQ(options.rows.size(), 11U);
  for (size_t i = 0; i < options.rows.size(); ++i)
    EXPECT_EQ(options.rows[i].numbers, (std::array<int8_t, 5>{static_cast<int8_t>(i + 1), 50, 60, 70, 80}));
  given.contest = "134";
  given.yes = true;
  const auto more = std::get<DrawSaveOptions>(draw_options("save", given));
  EXPECT_EQ(more.contest, 134);
  EXPECT_EQ(more.consent, Consent::given);
}

TEST(DrawArguments, WhatIsMissingOrWrong) {
  struct Row {
    std::vector<size_t> missing;
    const char* numbers_of_venice;
    const char* what;
  };
  for (const Row& row : {Row{{0}, "1,2,3,4,5", "not given: --BA; "},
                         {{7, 10}, "1,2,3,4,5", "not given: --RM, --RN; "},
                         {{9}, "", "not given: --VE; "},
                         {{}, "1,2,3,4,4", "--VE \"1,2,3,4,4\": number 4 comes twice; "}}) {
    DrawArguments given = whole_draw();
    given.wheels[9] = row.numbers_of_venice;
    for (const size_t place : row.missing) given.wheels[place].clear();
    try {
      draw_options("save", given);
      ADD_FAILURE() << row.what;
    } catch (const vestara::Failure& failure) {
      EXPECT_EQ(failure.kind(), FailureKind::argument);
      EXPECT_EQ(std::string(failure.what()).substr(0, std::string_view(row.what).size()), row.what);
    }
  }
}

}  // namespace
}  // namespace vestara::host
