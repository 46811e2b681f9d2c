#include "hosts/cli/terminal/terminal.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>

#include "tests/support/changed_environment.h"

namespace vestara::host {
namespace {

using testing_support::ChangedEnvironment;

/// Standard output is a terminal as long as one lives.
class OutputOnTerminal {
 public:
  OutputOnTerminal() : ours_(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)), before_(::dup(STDOUT_FILENO)) {
    std::cout.flush();
    if (::grantpt(ours_) != 0 || ::unlockpt(ours_) != 0) return;
    const int theirs = ::open(::ptsname(ours_), O_RDWR | O_NOCTTY | O_CLOEXEC);
    ::dup2(theirs, STDOUT_FILENO);
    ::close(theirs);
  }
  OutputOnTerminal(const OutputOnTerminal&) = delete;
  OutputOnTerminal& operator=(const OutputOnTerminal&) = delete;
  ~OutputOnTerminal() {
    ::dup2(before_, STDOUT_FILENO);
    ::close(before_);
    ::close(ours_);
  }

 private:
  int ours_;
  int before_;
};

TEST(Terminal, ColourIsForTerminalsThatWantIt) {
  struct Row {
    ColourChoice choice;
    const char* no_color;
    const char* term;
    bool on_terminal;
    bool elsewhere;
  };
  for (const Row& row : {Row{ColourChoice::automatic, nullptr, "xterm", true, false},
                         {ColourChoice::automatic, nullptr, nullptr, true, false},
                         {ColourChoice::automatic, "", "xterm", true, false},
                         {ColourChoice::automatic, "1", "xterm", false, false},
                         {ColourChoice::automatic, "0", "xterm", false, false},
                         {ColourChoice::automatic, nullptr, "dumb", false, false},
                         {ColourChoice::always, "1", "dumb", true, true},
                         {ColourChoice::never, nullptr, "xterm", false, false}}) {
    using Value = std::optional<std::string>;
    const ChangedEnvironment no_color("NO_COLOR", row.no_color ? Value(row.no_color) : Value());
    const ChangedEnvironment term("TERM", row.term ? Value(row.term) : Value());
    bool shown = false;
    {
      const OutputOnTerminal terminal;
      shown = wants_colour(row.choice, std::cout);
    }
    EXPECT_EQ(shown, row.on_terminal) << (row.no_color ? row.no_color : "unset");
    const std::ostream other(nullptr);
    EXPECT_EQ(wants_colour(row.choice, other), row.elsewhere);
  }
}

TEST(Terminal, ShowsTheCharactersOfItsLocale) {
  struct Row {
    const char *lc_all, *lc_ctype, *lang, *term;
    bool shown;
  };
  for (const Row& row : {Row{"C.UTF-8", "C", "C", "xterm", true},
                         {"C", "C.UTF-8", "C.UTF-8", "xterm", false},
                         {"", "it_IT.utf8", "C", "xterm", true},
                         {"", "C", "it_IT.utf8", "xterm", false},
                         {"", "", "it_IT.UTF-8", "xterm", true},
                         {"", "", "it_IT", "xterm", false},
                         {"", "", "", "xterm", false},
                         {"C.UTF-8", "", "", "dumb", false}}) {
    const ChangedEnvironment lc_all("LC_ALL", row.lc_all);
    const ChangedEnvironment lc_ctype("LC_CTYPE", row.lc_ctype);
    const ChangedEnvironment lang("LANG", row.lang);
    const ChangedEnvironment term("TERM", row.term);
    bool shown = false;
    {
      const OutputOnTerminal terminal;
      shown = shows_utf8(std::cout);
    }
    EXPECT_EQ(shown, row.shown) << row.lc_all << "," << row.lc_ctype << "," << row.lang;
    EXPECT_FALSE(shows_utf8(std::ostream(nullptr)));
  }
}

}  // namespace
}  // namespace vestara::host
