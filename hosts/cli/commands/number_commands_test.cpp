#include <gtest/gtest.h>

#include <algorithm>

#include "dorvane/connector.h"
#include "hosts/cli/in_process.h"
#include "tests/support/log_capture.h"
#include "tests/support/temporary_folder.h"

namespace vestara::host {
namespace {

class NumberCommands : public testing::Test {
 protected:
  void SetUp() override {
    folder_.file("a.csv",
                 "date,wheel,n1,n2,n3,n4,n5\n"
                 "2005-01-01,BA,1,10,11,12,13\n"
                 "2005-01-01,VE,1,2,3,4,5\n"
                 "2005-01-08,VE,1,6,7,8,9\n"
                 "2005-01-15,BA,30,31,32,33,34\n"
                 "2005-01-15,VE,2,1,20,21,22\n"
                 "2005-01-22,BA,1,2,40,41,42\n");
    ASSERT_EQ(run("import @/a.csv").code, 0);
  }
  Outcome run(std::string_view line) const {
    return run_in_process("--db sqlite:@/a.sqlite " + std::string(line), folder_.path().string());
  }
  /// Puts a row into the archive that no import would take.
  void insert(const std::string& wheel, int32_t first) const {
    dorvane::DbConnector connector;
    ASSERT_TRUE(connector.Open("sqlite:" + folder_.path_to("a.sqlite")));
    ASSERT_TRUE(
        connector.ExecuteSql("INSERT INTO storico(dtEstr,ruota,estr1,estr2,estr3,estr4,estr5) VALUES "
                             "('2005-01-29','" +
                             wheel + "'," + std::to_string(first) + ",2,3,4,5)"));
  }

  testing_support::TemporaryFolder folder_;
};

TEST_F(NumberCommands, Answer) {
  const std::string ranks = "rank,number,wheel,";
  struct Row {
    const char* arguments;
    int code;
    std::string out;
    const char* err = "";
  };
  for (const Row& row :
       {Row{"delays --wheels VE", 0, "longest_delay,2|drawn,12|never_drawn,78||" + ranks + "delay|1,3,VE,2|2,6,VE,1|"},
        {"delays --wheels VE,BA --to 2005-01-15", 0,
         "longest_delay,2|drawn,22|never_drawn,158|note,\"each wheel was asked for by itself, so that the dates "
         "hold "
         "for all of them\"||" +
             ranks + "delay|1,3,VE,2|2,1,BA,1|3,6,VE,1|"},
        {"delays --wheels VE --true-ranking --top 2", 0,
         "longest_delay,2|drawn,12|never_drawn,78||" + ranks + "delay|1,3,VE,2|2,4,VE,2|"},
        {"delays --wheels VE --from 2006-01-01", 1, "longest_delay,|drawn,0|never_drawn,90||" + ranks + "delay|"},
        {"delays --wheels MI --true-ranking --top 1", 1,
         "longest_delay,|drawn,0|never_drawn,90||" + ranks + "delay|1,1,MI,|"},
        {"frequencies --wheels VE --top 2", 0, "numbers_drawn,15||" + ranks + "times|1,1,VE,3|2,2,VE,2|"},
        {"frequencies --wheels VE --all-levels --top 4", 0,
         "numbers_drawn,15||" + ranks + "times|1,1,VE,3|2,2,VE,2|3,3,VE,1|4,4,VE,1|"},
        {"frequencies --numbers --top 2", 0, "numbers_drawn,30||rank,number,times|1,1,5|2,2,3|"},
        {"frequencies --average --wheels VE --top 2", 0,
         "numbers_drawn,15|dates,3||" + ranks + "percent,times|1,1,VE,100,3|2,2,VE,66.666664,2|"},
        {"frequencies --average --per-wheel --top 3", 0,
         "numbers_drawn,30|dates,4||" + ranks +
             "wheel_percent,times,wheel_draws,percent|1,1,VE,100,3,3,75|2,1,BA,66.66666666666667,2,3,50|"
             "3,2,VE,66.66666666666667,2,3,50|"},
        {"frequencies --to 2004-12-31", 1, "numbers_drawn,0||" + ranks + "times|"},
        {"frequencies --average --per-wheel --to 2004-12-31 --top 1", 1,
         "numbers_drawn,0|dates,0||" + ranks + "wheel_percent,times,wheel_draws,percent|1,1,BA,0,0,0,0|"},
        {"table --as-of 2005-01-22 --per-wheel", 0,
         "as_of,2005-01-22|from,2003-01-23|lines,6||date,wheel,numbers,delay,wheel_delay|"
         "2005-01-22,BA,\"1,2,40,41,42\",0,0|2005-01-15,BA,\"30,31,32,33,34\",1,1|2005-01-15,VE,\"2,1,20,21,22\",1,0|"
         "2005-01-08,VE,\"6,7,8,9\",2,1|2005-01-01,BA,\"10,11,12,13\",3,2|2005-01-01,VE,\"3,4,5\",3,2|"},
        {"table --as-of 2007-01-20", 0,
         "as_of,2007-01-20|from,2005-01-20|lines,1||date,wheel,numbers,delay|2005-01-22,BA,\"1,2,40,41,42\",0|"},
        {"table --as-of 2009-01-01", 1, "as_of,2009-01-01|from,2007-01-02|lines,0||date,wheel,numbers,delay|",
         "vestara: the archive holds no draw from 2007-01-02 to 2009-01-01; its newest is of 2005-01-22, --as-of DATE "
         "shows an older time\n"},
        {"gaps 1 --wheel VE", 0,
         "appearances,3|current_delay,0|mean_distance,1|minimum_distance,1|maximum_distance,1|deviation,0|"
         "expected_distance,18||from,to,draws,days|2005-01-08,2005-01-15,1,7|2005-01-01,2005-01-08,1,"
         "7|"},
        {"gaps 2,1 --wheel Venezia", 0,
         "appearances,2|current_delay,0|mean_distance,2|minimum_distance,2|maximum_distance,2|deviation,|"
         "expected_distance,400.5||from,to,draws,days|2005-01-01,2005-01-15,2,14|"},
        {"gaps 1 2 --wheel VE --to 2005-01-14", 0,
         "appearances,1|current_delay,1|mean_distance,|minimum_distance,|maximum_distance,|deviation,|"
         "expected_distance,400.5||from,to,draws,days|"},
        {"gaps 90 --wheel VE", 1,
         "appearances,0|current_delay,|mean_distance,|minimum_distance,|maximum_distance,|deviation,|"
         "expected_distance,18||from,to,draws,days|"}}) {
    Outcome outcome = run("--format csv " + std::string(row.arguments));
    std::replace(outcome.out.begin(), outcome.out.end(), '\n', '|');
    EXPECT_EQ(outcome.code, row.code) << row.arguments << outcome.err;
    EXPECT_EQ(outcome.out, "name,value|" + row.out) << row.arguments;
    EXPECT_EQ(outcome.err, row.err);
  }
}

TEST_F(NumberCommands, CountDatesOverAllWheels) {
  struct Row {
    const char* arguments;
    const char* facts;
  };
  for (const Row& row :
       {Row{"gaps 1",
            "appearances,5|current_delay,0|mean_distance,0.75|minimum_distance,0|maximum_distance,1|"
            "deviation,0.5|expected_distance,12.17063"},
        {"gaps 1 --all --without-rn --to 2005-01-14",
         "appearances,3|current_delay,0|mean_distance,0.5|minimum_distance,0|maximum_distance,1|deviation,0.7071"},
        {"gaps 5 --all",
         "appearances,1|current_delay,3|mean_distance,|minimum_distance,|maximum_distance,|deviation,|"},
        {"gaps 1,2", "appearances,3|current_delay,0|mean_distance,1.5|minimum_distance,1|maximum_distance,2|"}}) {
    Outcome outcome = run("--format csv " + std::string(row.arguments));
    std::replace(outcome.out.begin(), outcome.out.end(), '\n', '|');
    EXPECT_EQ(outcome.code, 0) << row.arguments << outcome.err;
    EXPECT_NE(outcome.out.find("name,value|" + std::string(row.facts)), std::string::npos) << outcome.out;
  }
  EXPECT_NE(run("gaps 1").out.find("on the same date  "), std::string::npos);
}

TEST_F(NumberCommands, ShowGrids) {
  const std::string delays = run("delays --wheels VE --grid").out;
  EXPECT_NE(delays.find("\n\n    1  2  3  4  5  6  7  8  9 10"), std::string::npos) << delays;
  EXPECT_NE(delays.find("\nVE  0  0  2  2  2  1  1  1  1  -"), std::string::npos) << delays;
  const std::string coloured = run("--color always delays --wheels VE --grid").out;
  EXPECT_NE(coloured.find("\nVE\033[48;5;230;38;5;16m  0\033[0m"), std::string::npos) << coloured;
  struct Row {
    const char* arguments;
    const char* first;
    size_t lines;
  };
  for (const Row& row : {Row{"delays --wheels VE --grid", "wheel,number,delay\nVE,1,0\n", 96},
                         {"delays --grid", "wheel,number,delay\nBA,1,0\nBA,2,0\nBA,3,\n", 996},
                         {"frequencies --wheels VE --grid", "wheel,number,times\nVE,1,3\n", 94},
                         {"frequencies --average --grid", "wheel,number,percent\nBA,1,50\n", 995},
                         {"frequencies --average --per-wheel --wheels VE --grid --to 2005-01-10",
                          "wheel,number,wheel_percent\nVE,1,100\nVE,2,50\n", 95}}) {
    const std::string out = run("--format csv " + std::string(row.arguments)).out;
    EXPECT_NE(out.find("\n\n" + std::string(row.first)), std::string::npos) << row.arguments << out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), row.lines) << row.arguments;
  }
  EXPECT_NE(run("frequencies --average --wheels VE --grid").out.find("\nVE 100.0  66.7  33.3"), std::string::npos);
}

TEST_F(NumberCommands, SayWhatTheLibraryCouldNotCount) {
  const testing_support::LogCapture log;
  insert("VE", 91);
  for (const char* command : {"delays", "delays --wheels VE --grid", "frequencies", "frequencies --average",
                              "table --as-of 2005-02-01", "gaps 5", "gaps 5,6 --wheel VE"}) {
    const Outcome outcome = run(command);
    EXPECT_EQ(outcome.code, 3) << command;
    EXPECT_EQ(outcome.out, "") << command;
    EXPECT_NE(outcome.err.find("cannot be "), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find("a draw has a wheel or a number that there is not; "), std::string::npos) << outcome.err;
  }
}

TEST_F(NumberCommands, SayWhatTheDatabaseRefused) {
  const testing_support::LogCapture log;
  dorvane::DbConnector connector;
  ASSERT_TRUE(connector.Open("sqlite:" + folder_.path_to("a.sqlite")));
  ASSERT_TRUE(connector.ExecuteSql("DROP TABLE storico"));
  for (const char* command : {"delays", "frequencies", "frequencies --average", "table", "gaps 5", "gaps 5,6"}) {
    const Outcome outcome = run(command);
    EXPECT_EQ(outcome.code, 3) << command;
    EXPECT_EQ(outcome.err.substr(0, 37), "vestara: the archive cannot be read: ") << outcome.err;
  }
}

TEST_F(NumberCommands, SayWhatWouldBeRight) {
  struct Row {
    const char* arguments;
    const char* err;  ///< begins so
  };
  for (const Row& row :
       {Row{"delays 5", "argument \"5\" is one too many"},
        {"delays --top 0", "--top \"0\" cannot be; give a whole number from 1 to 990\n"},
        {"delays --wheels XX", "--wheels \"XX\" is not known; "},
        {"delays --grid --top 3", "--top does not go with --grid; "},
        {"delays --grid --true-ranking", "--true-ranking does not go with --grid; "},
        {"delays --from 2005-01-02 --to 2005-01-01", "--from 2005-01-02 is later than --to "},
        {"frequencies --per-wheel", "--per-wheel goes with --average only; "},
        {"frequencies --numbers --average", "--average does not go with --numbers; "},
        {"frequencies --numbers --all-levels", "--all-levels does not go with --numbers; "},
        {"frequencies --numbers --grid", "--numbers does not go with --grid; "},
        {"table --from 2005-01-01", "option \"--from\" is unknown here; known are --per-wheel, --as-of, "},
        {"table --as-of 2005", "--as-of \"2005\" is no date; "},
        {"gaps", "NUMBERS is required; see vestara gaps --help\n"},
        {"gaps 1,2,3", "NUMBERS: these are 3; distances are kept of single numbers and of pairs, give one or two\n"},
        {"gaps 5,5", "NUMBERS: 5 comes twice; "},
        {"gaps 1 --wheel BA,VE", "--wheel \"BA,VE\" is not known; wheels are BA, "},
        {"gaps 1 --wheel BA --all", "--all does not go with --wheel; it names the only one\n"},
        {"gaps 1 --wheel BA --without-rn", "--without-rn does not go with --wheel; "},
        {"gaps 1 --from 2005-01-02 --to 2005-01-01", "--from 2005-01-02 is later than --to "},
        {"gaps 1 --plot --format json", "--plot goes with --format table only; "}}) {
    const Outcome outcome = run(row.arguments);
    EXPECT_EQ(outcome.code, 2) << row.arguments;
    EXPECT_EQ(outcome.out, "") << row.arguments;
    EXPECT_EQ(outcome.err.find("vestara: " + std::string(row.err)), 0U) << outcome.err;
  }
}

TEST_F(NumberCommands, HelpShowsAnExampleAndWhatTheLibraryMeans) {
  struct Row {
    const char* command;
    const char* says;
  };
  for (const Row& row : {Row{"delays", "--true-ranking is"},
                         {"delays", "(the library's -1;"},
                         {"delays", "first one only"},
                         {"frequencies", "one number on one wheel for each count"},
                         {"frequencies", "divided by all dates"},
                         {"frequencies", "first one only"},
                         {"table", "the 730 days up to today"},
                         {"table", "dates of any wheel"},
                         {"table", "later draws do not count"},
                         {"gaps", "1 for neighbours"},
                         {"gaps", "`vestara distances`"}}) {
    const Outcome help = run(std::string(row.command) + " --help");
    EXPECT_EQ(help.code, 0);
    EXPECT_NE(help.out.find("Example:\n  vestara " + std::string(row.command) + " "), std::string::npos) << help.out;
    EXPECT_NE(help.out.find(row.says), std::string::npos) << row.says << help.out;
  }
}

}  // namespace
}  // namespace vestara::host
