#include <gtest/gtest.h>

#include <array>

#include "hosts/cli/in_process.h"
#include "tests/support/temporary_folder.h"

namespace vestara::host {
namespace {

class DrawCommands : public testing::Test {
 protected:
  DrawCommands() { folder_.file("a.csv", "date,wheel,n1,n2,n3,n4,n5\n1871-01-07,FI,15,71,18,64,81\n"); }
  Outcome run(std::string_view line) const { return run_in_process(line, folder_.path().string()); }
  Outcome save(const std::string& words) const {
    return run("--db sqlite:@/a.sqlite --format csv draw save 21/8/2010" + words);
  }

  testing_support::TemporaryFolder folder_;
};

constexpr std::array wheels{"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"};

/// Options, each behind a blank: every wheel with numbers of its own, but for one that has others or none.
std::string whole_draw(std::string_view wheel = {}, const std::string& numbers = {}) {
  std::string words;
  for (size_t i = 0; i < wheels.size(); ++i) {
    const std::string five = wheels[i] == wheel ? numbers : std::to_string(i + 1) + ",50,60,70,80";
    if (!five.empty()) words += std::string(" --") + wheels[i] + " " + five;
  }
  return words;
}

TEST_F(DrawCommands, AWholeDraw) {
  run("--db sqlite:@/a.sqlite import @/a.csv");
  struct Row {
    std::string words;
    const char* out;
  };
  const std::string facts = "name,value\nresult,";
  for (const Row& row :
       {Row{whole_draw(), "saved\ndate,2010-08-21\ncontest,1\nrows,11\nreplaced,0\n"},
        {whole_draw() + " --contest 134 --yes", "replaced\ndate,2010-08-21\ncontest,134\nrows,11\nreplaced,11\n"}}) {
    const Outcome saved = save(row.words);
    EXPECT_EQ(saved.err, "");
    EXPECT_EQ(saved.out, facts + row.out);
  }
  const std::string refusal = "vestara: there is no terminal to ask whether to replace the 11 rows of 2010-08-21, ";
  EXPECT_EQ(save(whole_draw()).err.substr(0, refusal.size()), refusal);
  std::string shown = "name,value\ndate,2010-08-21\ncontest,134\n\nwheel,n1,n2,n3,n4,n5\n";
  for (size_t i = 0; i < wheels.size(); ++i)
    shown += std::string(wheels[i]) + "," + std::to_string(i + 1) + ",50,60,70,80\n";
  EXPECT_EQ(run("--db sqlite:@/a.sqlite --format csv draw show --back 1").out, shown);
}

TEST_F(DrawCommands, WhatIsMissingOrWrong) {
  struct Row {
    std::string words;
    const char* what;
  };
  for (const Row& row : {Row{whole_draw("BA"), "not given: --BA; "},
                         {whole_draw("RM"), "not given: --RM; "},
                         {" --FI 1,2,3,4,5", "not given: --BA, --CA, --GE, "},
                         {whole_draw("VE", "1,2,3,4,4"), "--VE \"1,2,3,4,4\": number 4 comes twice; "},
                         {whole_draw() + " --contest 0", "--contest \"0\" cannot be; "},
                         {whole_draw() + " --file @/a.csv", "numbers are given in two ways; "},
                         {" --yes", "no numbers are given; "}}) {
    const Outcome outcome = save(row.words);
    const std::string expected = std::string("vestara: ") + row.what;
    EXPECT_EQ(outcome.code, 2) << row.words;
    EXPECT_EQ(outcome.err.substr(0, expected.size()), expected) << row.words;
  }
}

}  // namespace
}  // namespace vestara::host
