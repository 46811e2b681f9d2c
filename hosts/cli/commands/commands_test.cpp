#include "hosts/cli/commands/commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "hosts/cli/in_process.h"

namespace vestara::host {
namespace {

/// Every command in words, "draw show" behind "draw".
std::vector<std::pair<std::string, const Command*>> all_commands() {
  std::vector<std::pair<std::string, const Command*>> all;
  for (const Command* command : commands()) {
    all.emplace_back(command->name, command);
    for (const Command* inner : command->inner)
      all.emplace_back(std::string(command->name) + " " + std::string(inner->name), inner);
  }
  return all;
}

TEST(Commands, EachSaysWhatItIs) {
  std::set<std::string> names;
  for (const auto& [name, command] : all_commands()) {
    EXPECT_TRUE(names.insert(name).second) << name;
    EXPECT_EQ(command->bind == nullptr, !command->inner.empty()) << name;
    const Outcome help = run_in_process(name + " --help", {});
    EXPECT_EQ(help.code, 0) << name;
    EXPECT_EQ(help.out.substr(0, command->help.size()), command->help) << name;
    EXPECT_NE(help.out.find("Example:\n  vestara " + std::string(name)), std::string::npos) << help.out;
    EXPECT_EQ(help.err, "") << name;
  }
}

TEST(Commands, TheHelpListsThemByGroup) {
  const std::string help = run_in_process("--help", {}).out;
  size_t place = 0;
  for (const Command* command : commands()) {
    place = help.find("\n  " + std::string(command->name) + " ", place);
    ASSERT_NE(place, std::string::npos) << command->name << help;
  }
  EXPECT_TRUE(std::is_sorted(commands().begin(), commands().end(),
                             [](const Command* left, const Command* right) { return left->group < right->group; }));
  for (const char* heading : {"\nDraws:\n  import ", "\nQuestions:\n  search ", "\nBets:\n  combinations ",
                              "\nArchive:\n  archive ", "\nProgramming:\n  describe "})
    EXPECT_NE(help.find(heading), std::string::npos) << heading << help;
}

TEST(Commands, AnUnknownOneGetsThoseThatAreNear) {
  struct Row {
    const char* words;
    const char* meant;  ///< the second line; empty for none
  };
  for (const Row& row : {Row{"serch", "did you mean search?"},
                         {"arch", "did you mean search, archive?"},
                         {"register-all", ""},
                         {"systems", "did you mean system?"},
                         {"saved lst", "did you mean list?"},
                         {"saved search", ""},
                         {"draw sve", "did you mean save?"}}) {
    const Outcome outcome = run_in_process(row.words, {});
    EXPECT_EQ(outcome.code, 2) << row.words;
    const size_t line = outcome.err.find('\n') + 1;
    const std::string meant = *row.meant == '\0' ? "" : std::string(row.meant) + "\n";
    EXPECT_EQ(outcome.err.substr(line), meant) << row.words;
  }
}

}  // namespace
}  // namespace vestara::host
