#include <gtest/gtest.h>

#include <algorithm>

#include "dorvane/connector.h"
#include "hosts/cli/in_process.h"
#include "hosts/cli/version.h"
#include "tests/support/temporary_folder.h"

namespace vestara::host {
namespace {

class Cli : public testing::Test {
 protected:
  Outcome run(std::string_view line) const { return run_in_process(line, folder_.path().string()); }
  std::string archive() const { return run("--db sqlite:@/a.sqlite export").out; }

  testing_support::TemporaryFolder folder_;
};

constexpr const char* three_draws =
    "date,wheel,n1,n2,n3,n4,n5\n"
    "1871-01-07,FI,15,71,18,64,81\n"
    "2005-05-04,RN,15,71,1,2,3\n"
    "2005-05-04,VE,71,4,5,6,7\n";

TEST_F(Cli, ImportsSearchesAndExports) {
  folder_.file("a.csv", three_draws);
  const Outcome import = run("import @/a.csv --db sqlite:@/a.sqlite --format jsonl");
  EXPECT_EQ(import.code, 0) << import.err;
  EXPECT_EQ(import.out,
            "{\"kind\":\"summary\",\"result\":\"imported\",\"file_form\":\"csv\",\"read\":3,\"added\":3,\"changed\":0,"
            "\"gone\":0,\"kept\":0,\"repeated\":0,\"rejected\":0,\"first_date\":\"1871-01-07\",\"last_date\":\"2005-05-"
            "04\",\"held_before\":0,\"backup\":null}\n");
  EXPECT_EQ(import.err, "");
  EXPECT_EQ(archive(), three_draws);
  struct Row {
    const char* arguments;
    int code;
    const char* out;
  };
  for (const Row& row :
       {Row{"71 --asc", 0,
            "rows,3|draws,2|ambate,3|ambi,0|terni,0|quaterne,0|cinquine,0||date,contest|1871-01-07,1|2005-05-04,1|"},
        {"71 15 --hits ambo", 0,
         "rows,2|draws,2|ambate,4|ambi,2|terni,0|quaterne,0|cinquine,0||date,contest|2005-05-04,1|1871-01-07,1|"},
        {"71,15 --hits 2 --wheels cities", 0,
         "rows,1|draws,1|ambate,2|ambi,1|terni,0|quaterne,0|cinquine,0||date,contest|1871-01-07,1|"},
        {"71 --wheels nz,roma", 0,
         "rows,1|draws,1|ambate,1|ambi,0|terni,0|quaterne,0|cinquine,0||date,contest|2005-05-04,1|"},
        {"71 --to 1/1/1900", 0,
         "rows,1|draws,1|ambate,1|ambi,0|terni,0|quaterne,0|cinquine,0||date,contest|1871-01-07,1|"},
        {"90", 1, "rows,0|draws,0|ambate,0|ambi,0|terni,0|quaterne,0|cinquine,0||date,contest|"}}) {
    Outcome search = run(std::string("--db sqlite:@/a.sqlite --format csv search ") + row.arguments);
    std::replace(search.out.begin(), search.out.end(), '\n', '|');
    EXPECT_EQ(search.code, row.code) << row.arguments << search.err;
    EXPECT_EQ(search.out, "name,value|" + std::string(row.out)) << row.arguments;
    EXPECT_EQ(search.err, "");
  }
}

TEST_F(Cli, StudiesWhatASearchFinds) {
  folder_.file("a.csv", std::string(three_draws) + "2005-05-07,FI,71,2,3,4,5\n");
  run("import @/a.csv --db sqlite:@/a.sqlite");
  struct Row {
    const char* arguments;
    int code;
    const char* out;
  };
  for (const Row& row :
       {Row{"distances 71 --wheels FI --asc", 0,
            "gaps,2|current_delay,0|mean_gap_draws,0.5|minimum_gap_draws,0|maximum_gap_draws,1|mean_gap_days,49063|"
            "minimum_gap_days,49063|maximum_gap_days,49063||from,to,draws,days,wheel,hits,contest|"
            ",1871-01-07,0,,FI,1,1|1871-01-07,2005-05-07,1,49063,FI,1,2|"},
        {"distances 4 --wheels VE --wheel-draws", 0,
         "gaps,2|current_delay,1|mean_gap_draws,1|minimum_gap_draws,1|maximum_gap_draws,1|mean_gap_days,|"
         "minimum_gap_days,|maximum_gap_days,|current_wheel_delay,0|mean_gap_wheel_draws,0|minimum_gap_wheel_draws,0|"
         "maximum_gap_wheel_draws,0||from,to,draws,days,wheel,hits,contest,wheel_draws|2005-05-04,,1,,VE,1,1,0|"
         ",2005-05-04,1,,,,,0|"},
        {"distances 90 --to 2000-01-01", 1,
         "gaps,1|current_delay,1|mean_gap_draws,1|minimum_gap_draws,1|maximum_gap_draws,1|mean_gap_days,|"
         "minimum_gap_days,|maximum_gap_days,||from,to,draws,days,wheel,hits,contest|,,1,,,,|"},
        {"probability --numbers 1 --wheels 1", 0,
         "numbers,1|hits,1|wheels,1|percent,5.555555555555555|draws_per_hit,18|odds,17 to 1 against|"},
        {"probability --numbers 3 --hits 5", 0, "numbers,3|hits,5|wheels,1|percent,0|draws_per_hit,|odds,never|"},
        {"probability --numbers 90 --hits 5", 0,
         "numbers,90|hits,5|wheels,1|percent,100|draws_per_hit,1|odds,certain|"},
        {"combinations 5 12 33 --size 2 --first 2", 0, "numbers,3|size,2|count,3||n1,n2|5,12|5,33|"},
        {"combinations 33,5 --size 1", 0, "numbers,2|size,1|count,2||n1|33|5|"},
        {"combinations 33,5 --size 2 --count-only", 0, "numbers,2|size,2|count,1|"}}) {
    Outcome study = run("--db sqlite:@/a.sqlite --format csv " + std::string(row.arguments));
    std::replace(study.out.begin(), study.out.end(), '\n', '|');
    EXPECT_EQ(study.code, row.code) << row.arguments << study.err;
    EXPECT_EQ(study.out, "name,value|" + std::string(row.out)) << row.arguments;
    EXPECT_EQ(study.err, "");
  }
}

TEST_F(Cli, DescribesTheArchive) {
  folder_.file("a.csv", three_draws);
  run("import @/a.csv --db sqlite:@/a.sqlite");
  const Outcome archive = run("archive --db sqlite:@/a.sqlite");
  EXPECT_EQ(archive.code, 0);
  EXPECT_EQ(archive.out,
            "draw dates  2\nrows        3\nfirst date  1871-01-07\nlast date   2005-05-04\n\n"
            "wheel  name       draw dates  rows  first date  last date\n"
            "FI     Firenze             1     1  1871-01-07  1871-01-07\n"
            "VE     Venezia             1     1  2005-05-04  2005-05-04\n"
            "RN     Nazionale           1     1  2005-05-04  2005-05-04\n");
}

TEST_F(Cli, AnImportReplacesWhenItIsToldToAndWarns) {
  folder_.file("a.csv", three_draws);
  folder_.file("b.csv", "date,wheel,n1,n2,n3,n4,n5\n2005-05-04,RN,15,71,1,2,3\n2005-05-07,RN,1,2,3,4,5\n");
  run("import @/a.csv --db sqlite:@/a.sqlite");
  const std::string lines = "\n  1871-01-07 FI 15 71 18 64 81\n  2005-05-04 VE 71 4 5 6 7\n";
  for (const char* flag : {"", "--dry-run "}) {
    const Outcome refused = run("import " + std::string(flag) + "@/b.csv --db sqlite:@/a.sqlite");
    EXPECT_EQ(refused.code, 4);
    EXPECT_TRUE(refused.err.ends_with(" takes the file alone" + lines)) << refused.err;
    EXPECT_EQ(archive(), three_draws);
  }
  const Outcome dry = run("import --replace --dry-run @/b.csv --db sqlite:@/a.sqlite --format csv");
  EXPECT_EQ(dry.code, 0);
  EXPECT_NE(dry.out.find("result,\"checked, nothing changed\"\n"), std::string::npos) << dry.out;
  EXPECT_NE(dry.out.find("added,1\nchanged,0\ngone,2\nkept,0\nrepeated,0\nrejected,0\n"), std::string::npos) << dry.out;
  EXPECT_TRUE(dry.out.ends_with("held_before,3\nbackup,\n\nmanual_date,in_file,result\n")) << dry.out;
  EXPECT_TRUE(dry.err.ends_with("would go away, the file does not have them" + lines)) << dry.err;
  EXPECT_EQ(archive(), three_draws);
  const Outcome import = run("import --replace @/b.csv --db sqlite:@/a.sqlite");
  EXPECT_EQ(import.code, 0);
  EXPECT_TRUE(import.err.ends_with("went away, the file does not have them" + lines)) << import.err;
  EXPECT_EQ(archive(), testing_support::bytes_of(folder_.path() / "b.csv"));
}

TEST_F(Cli, ABadFileChangesNothing) {
  folder_.file("a.csv", three_draws);
  folder_.file("bad.csv", "date,wheel,n1,n2,n3,n4,n5\n2005-05-04,RN,15,71,1,2,3\n2005-05-07,RN,1,2,3,4,4\n");
  for (const bool held : {false, true}) {
    if (held) run("import @/a.csv --db sqlite:@/a.sqlite");
    for (const char* flag : {"", "--dry-run "}) {
      const Outcome bad = run("import " + std::string(flag) + "@/bad.csv --db sqlite:@/a.sqlite");
      EXPECT_EQ(bad.code, 4);
      EXPECT_EQ(bad.out, "");
      EXPECT_NE(bad.err.find("bad.csv has 1 row in error, nothing was changed; "), std::string::npos) << bad.err;
      EXPECT_TRUE(bad.err.ends_with("\n  line 3: number 4 comes twice\n")) << bad.err;
      EXPECT_EQ(std::filesystem::exists(folder_.path() / "a.sqlite"), held);
    }
  }
  EXPECT_EQ(archive(), three_draws);
}

TEST_F(Cli, AnArchiveOfAnotherProgramIsNotTouched) {
  {
    dorvane::DbConnector connector;
    ASSERT_TRUE(connector.Open("sqlite:" + folder_.path_to("a.sqlite")));
    for (const char* table :
         {"CREATE TABLE STORICO(ID INTEGER PRIMARY KEY,DTESTR DATE,RUOTA TEXT,ESTR1 INT,ESTR2 INT,ESTR3 INT,ESTR4 INT,"
          "ESTR5 INT,CONCORSONUMERO INT,EXTRA TEXT)",
          "CREATE TABLE TRICERCHE(IDRICERCA INT,DESCRICERCA,NUMERI,COMBINAZIONE,RUOTE,DTSAVE,DTDA,DTA)",
          "CREATE TABLE TSISTEMI(IDSIS INT,TITOLO,DESCRIZIONE,NUMERI,QTANUMERI,NGIOCATE,KCOLONNE,GARANZIA,SISTIPO)",
          "CREATE TABLE TSISTEMADETAIL(ID INT,IDSIS INT,COMBINAZIONE)",
          "CREATE TABLE RUOTE(ENUMERATORE INT,ENUMERATOREBIT INT,RUOTAALIAS TEXT)",
          "INSERT INTO RUOTE VALUES(11,1024,'RN')",
          "INSERT INTO STORICO(DTESTR,RUOTA,ESTR1,ESTR2,ESTR3,ESTR4,ESTR5)VALUES(NULL,'BA',1,2,3,4,5)",
          "INSERT INTO STORICO(DTESTR,RUOTA,ESTR1,ESTR2,ESTR3,ESTR4,ESTR5)VALUES('1999-01-02','BA',0,NULL,3,4,5)",
          "INSERT INTO STORICO(DTESTR,RUOTA,ESTR1,ESTR2,ESTR3,ESTR4,ESTR5)VALUES('1999-01-02','CA',1,2,3,4,5)"})
      ASSERT_TRUE(connector.ExecuteSql(table)) << connector.LastError();
  }
  const Outcome before = run("export --contest --db sqlite:@/a.sqlite");
  EXPECT_EQ(before.out, "date,contest,wheel,n1,n2,n3,n4,n5\n1999-01-02,,CA,1,2,3,4,5\n");
  EXPECT_EQ(before.err, "vestara: warning: 2 rows without a whole draw left out\n");
  folder_.file("a.csv", three_draws);
  const Outcome import = run("import --replace @/a.csv --db sqlite:@/a.sqlite --format csv");
  EXPECT_EQ(import.code, 0) << import.err;
  EXPECT_NE(import.out.find("gone,3\nkept,0\n"), std::string::npos) << import.out;
  EXPECT_NE(import.out.find("held_before,3\n"), std::string::npos) << import.out;
  EXPECT_EQ(archive(), three_draws);
  dorvane::DbConnector connector;
  ASSERT_TRUE(connector.Open("sqlite:" + folder_.path_to("a.sqlite")));
  EXPECT_EQ(connector.GetMaxId("RUOTE", "ENUMERATORE"), 11);
  automation::Ref<RecordSet> rows;
  ASSERT_TRUE(connector.OpenRecordset(rows, "SELECT * FROM ruote"));
  EXPECT_EQ(rows->record_count(), 1);
}

TEST_F(Cli, ExportsEachFormAndReadsItBack) {
  folder_.file("a.csv", three_draws);
  run("import @/a.csv --db sqlite:@/a.sqlite");
  for (const char* form : {"csv", "tsv", "update", "csv --contest"}) {
    const Outcome written = run("--db sqlite:@/a.sqlite export --output @/out --as " + std::string(form));
    EXPECT_EQ(written.code, 0) << written.err;
    EXPECT_EQ(written.out, "");
    EXPECT_EQ(run("--db sqlite:@/b.sqlite import @/out").code, 0) << form;
    EXPECT_EQ(run("--db sqlite:@/b.sqlite export").out, three_draws) << form;
  }
}

TEST_F(Cli, SaysWhatWouldBeRight) {
  struct Row {
    const char* arguments;
    int code;
    const char* err;  ///< begins so
  };
  for (const Row& row : {
           Row{"", 2,
               "vestara: no command was given; commands are import, generate, export, draw, search, distances, "
               "probability, "
               "delays, frequencies, table, gaps, saved, combinations, system, archive, copy, backup, restore, doctor, "
               "describe, call, register, unregister, classes\n"},
           {"serch", 2, "vestara: command \"serch\" is unknown; known are import, "},
           {"search 5 --hit 1", 2, "vestara: option \"--hit\" is unknown here; known are --hits, --wheels, --from, "},
           {"search", 2, "vestara: NUMBERS is required; see vestara search --help\n"},
           {"search 5 --hits 2", 2, "vestara: --hits 2 cannot come of 1 number; "},
           {"search 5 --from 2000-01-01 --to 1999-01-01", 2, "vestara: --from 2000-01-01 is later than --to "},
           {"distances", 2, "vestara: NUMBERS is required; see vestara distances --help\n"},
           {"distances 5 --hits 2", 2, "vestara: --hits 2 cannot come of 1 number; "},
           {"distances 5 --plot --format csv", 2, "vestara: --plot goes with --format table only; "},
           {"probability", 2, "vestara: --numbers is required; see vestara probability --help\n"},
           {"probability --numbers 91", 2, "vestara: --numbers \"91\" cannot be; give a whole number from 1 to 90\n"},
           {"probability --numbers 1 --hits 6", 2, "vestara: --hits \"6\" is not known; 1 to 5, or ambata, "},
           {"probability --numbers 1 --wheels 12", 2,
            "vestara: --wheels \"12\" cannot be; give a whole number from 1 to 11\n"},
           {"combinations 1,2", 2, "vestara: --size is required; see vestara combinations --help\n"},
           {"combinations 1,2 --size 3", 2, "vestara: --size 3 cannot come of 2 numbers; "},
           {"combinations 1,2 --size 0", 2, "vestara: --size \"0\" cannot be; give a whole number from 1 to 90\n"},
           {"combinations 1,2,2 --size 1", 2, "vestara: NUMBERS: 2 comes twice; "},
           {"combinations 1 --size 1 --first 1 --count-only", 2,
            "vestara: --count-only and --first exclude each other; "},
           {"archive more", 2, "vestara: argument \"more\" is one too many; see vestara archive --help\n"},
           {"archive --format", 2, "vestara: --format: 1 required FORMAT missing; see vestara archive --help\n"},
           {"export --as tsv --contest", 2, "vestara: --contest does not go with --as tsv; "},
           {"generate --seed 1 --from 2000-01-01", 2, "vestara: --to is required; see vestara generate --help\n"},
           {"draw", 2, "vestara: no command was given; commands are show, save, delete\n"},
           {"saved shwo", 2, "vestara: command \"shwo\" is unknown; known are list, show, save, run, delete\n"},
           {"draw show", 2, "vestara: which draw? give either DATE or --back N; "},
           {"draw show 2005-02-09 --back 1", 2, "vestara: which draw? give either DATE or --back N; "},
           {"draw show 2005-02-30", 2, "vestara: DATE \"2005-02-30\" is no date; "},
           {"draw show --back 0", 2, "vestara: --back \"0\" cannot be; give a whole number from 1 "},
           {"draw show 1/2/2005 more", 2, "vestara: argument \"more\" is one too many; see vestara draw show --help\n"},
           {"draw save", 2, "vestara: DATE is required; see vestara draw save --help\n"},
           {"draw save 2005-02-09 --back 1", 2,
            "vestara: option \"--back\" is unknown here; known are --contest, --BA"},
           {"draw delete 2005-02-09", 3, "vestara: the archive "},
           {"saved save 5", 2, "vestara: --name is required; see vestara saved save --help\n"},
           {"saved save 5 --name n --hits 2", 2, "vestara: --hits 2 cannot come of 1 number; "},
           {"saved save 5 --name n --id 0", 2, "vestara: --id \"0\" cannot be; give a whole number from 1 "},
           {"system", 2, "vestara: no command was given; commands are generate, random, integral, save, list, show"},
           {"system save f", 2, "vestara: --title is required; see vestara system save --help\n"},
           {"system convert 1 --numbers 5,5", 2, "vestara: NUMBERS: 5 comes twice; "},
           {"system list", 3, "vestara: the archive "},
           {"system save @/missing --title t", 4, "vestara: "},
           {"saved run x", 2, "vestara: ID \"x\" cannot be; give a whole number from 0 "},
           {"import @/missing", 4, "vestara: "},
           {"archive --db sqlite:@/missing", 3, "vestara: the archive "},
           {"archive --db nonsense", 3, "vestara: the archive cannot be opened: "},
           {"generate --seed 1 --from 1800-01-01 --to 1800-02-01", 1, "vestara: no draw falls between "},
       }) {
    const Outcome outcome = run(row.arguments);
    EXPECT_EQ(outcome.code, row.code) << row.arguments;
    EXPECT_EQ(outcome.out, "") << row.arguments;
    EXPECT_EQ(outcome.err.substr(0, std::string_view(row.err).size()), row.err) << row.arguments;
  }
  EXPECT_NE(run("archive --db sqlite:@/missing").err.find("/missing is missing; vestara import FILE makes one\n"),
            std::string::npos);
}

TEST_F(Cli, SaysItsVersionAndAnExample) {
  EXPECT_EQ(run("--version").out, "vestara " + std::string(program_version) + "\n");
  EXPECT_NE(run("--help").out.find("Example:\n  vestara import "), std::string::npos);
}

TEST_F(Cli, AnEmptyArchiveIsNothingFound) {
  {
    dorvane::DbConnector connector;
    ASSERT_TRUE(connector.Open("sqlite:" + folder_.path_to("a.sqlite")));
    ASSERT_TRUE(connector.CreateSchema());
  }
  EXPECT_EQ(run("--db sqlite:@/a.sqlite archive --format jsonl").out,
            "{\"kind\":\"summary\",\"draw_dates\":0,\"rows\":0,\"first_date\":null,\"last_date\":null}\n");
  for (const char* command : {"archive", "export --output @/out", "search 5", "delays", "frequencies",
                              "frequencies --average", "table", "gaps 5", "gaps 5,6"})
    EXPECT_EQ(run("--db sqlite:@/a.sqlite " + std::string(command)).code, 1) << command;
  EXPECT_FALSE(std::filesystem::exists(folder_.path() / "out"));
}

}  // namespace
}  // namespace vestara::host
