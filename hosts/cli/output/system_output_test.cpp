#include "hosts/cli/output/system_output.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

#include "hosts/cli/failure.h"
#include "hosts/cli/terminal/interruption.h"
#include "tests/support/default_interrupts.h"
#include "tests/support/temporary_folder.h"

namespace vestara::host {
namespace {

TEST(SystemOutput, ReadsWhatItWrites) {
  const testing_support::TemporaryFolder folder;
  const std::string path = folder.path_to("system.txt");
  std::string combinations = "1,2,3";
  for (int32_t i = 0; i < 20000; ++i) combinations += "\r\n4,50,60";
  std::ostringstream out;
  write_system_file(path, out, combinations);
  write_system_file("-", out, combinations);
  EXPECT_EQ(testing_support::bytes_of(path), out.str());
  EXPECT_EQ(out.str().substr(0, 14), "1,2,3\n4,50,60\n");
  EXPECT_EQ(out.str().find('\r'), std::string::npos);
  std::ostringstream err;
  EXPECT_EQ(read_system_file(path, err).combinations, combinations);
  EXPECT_EQ(err.str(), "");
}

TEST(SystemOutput, AnInterruptLeavesTheFileAsItWas) {
  const testing_support::DefaultInterrupts interrupts;
  const testing_support::TemporaryFolder folder;
  const std::string path = folder.file("system.txt", "before");
  const Interruption interruption;
  std::raise(SIGINT);
  std::ostringstream out;
  for (const std::string& place : {path, std::string("-")}) {
    try {
      write_system_file(place, out, "1,2\r\n3,4");
      ADD_FAILURE() << place;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.kind(), FailureKind::interrupted);
    }
  }
  EXPECT_EQ(testing_support::bytes_of(path), "before");
  EXPECT_EQ(out.str(), "");
}

TEST(SystemOutput, WarnsWhenItReadsLinesOfAnotherLength) {
  const testing_support::TemporaryFolder folder;
  std::ostringstream err;
  const std::string path = folder.file("system.txt", "1,2\n3\n");
  read_system_file(path, err);
  EXPECT_EQ(err.str(),
            "vestara: warning: " + path + " has combinations of different lengths\n  line 2: 1 number, line 1 has 2\n");
}

}  // namespace
}  // namespace vestara::host
