#include "vestara/files/draw_file.h"

#include <gtest/gtest.h>

#include "vestara/files/contest_numbers.h"
#include "vestara/files/draw_file_writer.h"
#include "vestara/foundation/failure.h"

namespace vestara {
namespace {

constexpr const char* header = "date,wheel,n1,n2,n3,n4,n5\n";

/// "line 3: reason" of every rejected row, without what follows the first "(" or ",".
std::string rejections(std::string_view text) {
  std::string all;
  const DrawFile file = parse_draw_file(text, "x");
  for (const RejectedRow& row : file.draws.rejected.first())
    all += "line " + std::to_string(row.line) + ": " + row.reason.substr(0, row.reason.find_first_of("(,")) + "\n";
  return all;
}

/// The draws as CSV with contest numbers.
std::string as_csv(std::string_view text) {
  DrawFileWriter writer(DrawFormat::csv, ContestColumn::present);
  std::string csv;
  auto rows = parse_draw_file(text, "x").draws.rows;
  number_contests(rows);
  for (const DrawRow& row : rows) writer.add(csv, row);
  return csv;
}

std::string failure_of(std::string_view text) {
  try {
    refuse_rejected(parse_draw_file(text, "x.csv"), "x.csv");
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.kind(), FailureKind::file);
    return failure.what();
  }
  return "none";
}

TEST(DrawFile, IsRecognisedByContent) {
  struct Row {
    const char* text;
    const char* format;
  };
  for (const Row& row : {Row{"1939/01/07\tBA\t58\t22\t47\t49\t69\n", "tsv"},
                         {"\r\n\r\n1939/01/07\tBA\t58", "tsv"},
                         {"date,wheel,n1,n2,n3,n4,n5\n", "csv"},
                         {"#1#07/01/1939#BA#1#2#3#4#5*\n#1#", "update"},
                         {"first line\n#1#07/01/1939#BA#1#2#3#4#5", "update"},
                         {"#1#07/01/1939#BA#1,5#2#3#4#5", "update"},
                         {"1939-01-07;BA;58;22;47;49;69\n", "csv"},
                         {"hello", "none"},
                         {"", "none"}}) {
    const auto format = recognise(row.text);
    EXPECT_EQ(format ? format_name(*format) : "none", row.format) << row.text;
  }
}

TEST(DrawFile, AcceptsWhatFilesLookLike) {
  const std::string one = "1939-01-07,1,BA,58,22,47,49,69\n";
  const std::string csv_row = "1939-01-07,BA,58,22,47,49,69";
  const std::string mark = "\xEF\xBB\xBF";
  for (const std::string& text :
       {std::string("1939/01/07\tBA\t58\t22\t47\t49\t69\n"), std::string("1939/01/07\tBARI\t58\t22\t47\t49\t69"),
        mark + "1939/01/07\tba\t58\t22\t47\t49\t69\r\n\r\n\n", std::string("\n\n7/1/1939\tBA\t58\t22\t47\t49\t69\t\n"),
        header + csv_row, mark + header + csv_row + "\r\n\r\n",
        std::string("n5,n4,n3,n2,n1,WHEEL,Date\n69,49,47,22,58,BA,1939-01-07\n"),
        std::string("\"date\",\"wheel\",n1, n2 ,n3,n4,n5\n\"1939-01-07\",\"BA\",58, 22 ,47,49,69\n"),
        std::string("date,contest,wheel,n1,n2,n3,n4,n5\n1939-01-07,,BA,58,22,47,49,69\n"),
        std::string("#1#07/01/1939#BA#58#22#47#49#69"), std::string("#0#07/01/1939#BA#58#22#47#49#69*\r\n"),
        std::string("anything\n#1#1939-01-07#BA#58#22#47#49#69#more#fields*\n\n")})
    EXPECT_EQ(as_csv(text), one) << text;
}

std::string utf16(std::string_view text, bool high_first) {
  std::string bytes;
  for (const char c : text) bytes.append(high_first ? std::string{'\0', c} : std::string{c, '\0'});
  return bytes;
}

TEST(DrawFile, ReadsWhatOthersWrite) {
  const std::string one = "1939-01-07,9,BA,58,22,47,49,69\n1939-01-07,9,VE,1,2,3,4,5\n";
  const std::string tsv =
      "data\truota\t1\xC2\xB0\t2\xC2\xB0\t3\xC2\xB0\t4\xC2\xB0\t5\xC2\xB0\tconcorso\n"
      "07/01/1939\tBARI\t58\t22\t47\t49\t69\t9\n07/01/1939\tVENEZIA\t1\t2\t3\t4\t5\t9\n";
  struct Row {
    const char* name;
    std::string text;
  };
  const std::vector<Row> rows{
      {"tabs with a header", tsv},
      {"carriage returns", "#9#7/1/1939#BA#58#22#47#49#69*\r#9#7/1/1939#VE#1#2#3#4#5*\r"},
      {"semicolons",
       "data;concorso;ruota;n1;n2;n3;n4;n5\r\n7/1/1939;9;BA;58;22;47;49;69\r\n7/1/1939;9;VE;1;2;3;4;5\r\n"},
      {"semicolons at the end",
       "data;concorso;ruota;n1;n2;n3;n4;n5;\n7/1/1939;9;BA;58;22;47;49;69;\n7/1/1939;9;VE;1;2;3;4;5;;\n"},
      {"another order",
       "concorso,ruota,data,Estratto 5,Estratto 4,Estratto 3,Estratto 2,Estratto 1\n9,BA,1939-01-07,69,49,47,22,58\n"
       "9,VE,1939-01-07,5,4,3,2,1\n"},
      {"words",
       "Data Estrazione,Numero Concorso,RUOTA,primo,secondo,terzo,quarto,quinto\n1939-01-07,9,BA,58,22,47,49,69\n"
       "1939-01-07,9,VE,1,2,3,4,5\n"},
      {"spelt out",
       "\"dtEstr\",\"concorsoNumero\",\"ruota\",estr1,estr2,estr3,estr4,estr5\n1939-01-07,9,BA,58,22,47,49,69\n"
       "1939-01-07,9,VE,1,2,3,4,5\n"},
      {"no header, contest first", "9,1939-01-07,BA,58,22,47,49,69\n9,1939-01-07,VE,1,2,3,4,5\n"},
      {"no header, contest between", "1939-01-07;9;\"BA\";58;22;47;49;69\n1939-01-07;9;VE;1;2;3;4;5\n"},
      {"no header, contest last", "BA,58,22,47,49,69,1939-01-07,9\nVE,1,2,3,4,5,1939-01-07,9\n"},
      {"no header, carriage returns", "7/1/1939\t9\tBA\t58\t22\t47\t49\t69\r7/1/1939\t9\tVE\t1\t2\t3\t4\t5\r"},
      {"UTF-16, mark, low first", "\xFF\xFE" + utf16(one, false)},
      {"UTF-16, mark, high first", "\xFE\xFF" + utf16(one, true)},
      {"UTF-16, low first", utf16(one, false)},
      {"UTF-16, high first", utf16(one, true)}};
  for (const Row& row : rows) {
    EXPECT_EQ(failure_of(row.text), "none") << row.name;
    EXPECT_EQ(as_csv(row.text), one) << row.name;
  }
}

TEST(DrawFile, NamesWhatHoldsNoDraws) {
  struct Row {
    std::string text;
    const char* what;
  };
  for (const Row& row :
       {Row{"%PDF-1.4\n1,2", "x.csv is a PDF document; take the text file of the same draws"},
        Row{"BZh91AY", "x.csv is a bzip2 file; unpack it first, or take a zip or gzip file"},
        Row{"7z\xBC\xAF\x27\x1C", "x.csv is a 7z archive; unpack it first, or take a zip or gzip file"},
        Row{"\n <!DOCTYPE html><html>a,b",
            "x.csv is a web page, not the file itself; fetch the file that the page offers"},
        Row{std::string("SQLite format 3\0", 16),
            "x.csv is an archive in SQLite; vestara copy --from sqlite:FILE --to … brings it over"},
        Row{"\xD0\xCF\x11\xE0\xA1", "x.csv is an office document; save its sheet as CSV"},
        Row{"9,8,1939-01-07,BA,58,22,47,49,69\n", "x.csv, line 1: column \"9\" is unknown"},
        Row{"1939-01-07,BA,9,58,22,47,49,69\n", "x.csv, line 1: column \"1939-01-07\" is unknown"},
        Row{"data,ruota,n1,n2,n3,n4,n5,resto\n", "x.csv, line 1: column \"resto\" is unknown"}}) {
    const std::string what = failure_of(row.text);
    EXPECT_EQ(what.substr(0, std::string_view(row.what).size()), row.what);
  }
}

TEST(DrawFile, LinesOfEveryKindAreCounted) {
  const std::string good = "1939/01/07\tBA\t58\t22\t47\t49\t69";
  for (const std::string end : {"\n", "\r", "\r\n"})
    EXPECT_EQ(rejections(good + end + end + "rubbish" + end + good), "line 3: 1 field where 7 are needed\n");
  for (const std::string end : {"\n", "\r", "\r\n"})
    EXPECT_EQ(rejections("#1#07/01/1939#BA#1#2#3#4#5*" + end + end + "#1*"), "line 3: 2 fields where 9 are needed\n");
}

TEST(DrawFile, RejectsAreCountedAndTheFirstTwentyKept) {
  RejectedRows rejected;
  for (uint32_t line = 100; line > 0; --line) rejected.add(line, std::to_string(line));
  EXPECT_EQ(rejected.count(), 100U);
  ASSERT_EQ(rejected.first().size(), 20U);
  EXPECT_EQ(rejected.first().front().line, 1U);
  EXPECT_EQ(rejected.first().back().reason, "20");
}

TEST(DrawFile, SortsAndNumbersByCalendarYear) {
  EXPECT_EQ(as_csv("date,wheel,n1,n2,n3,n4,n5\n"
                   "1940-01-06,RN,1,2,3,4,5\n"
                   "1939-01-14,BA,1,2,3,4,5\n"
                   "1940-01-06,RM,1,2,3,4,5\n"
                   "1939-01-07,VE,1,2,3,4,5\n"
                   "1939-01-07,RN,1,2,3,4,5\n"
                   "1939-01-07,TO,1,2,3,4,5\n"),
            "1939-01-07,1,TO,1,2,3,4,5\n"
            "1939-01-07,1,VE,1,2,3,4,5\n"
            "1939-01-07,1,RN,1,2,3,4,5\n"
            "1939-01-14,2,BA,1,2,3,4,5\n"
            "1940-01-06,1,RM,1,2,3,4,5\n"
            "1940-01-06,1,RN,1,2,3,4,5\n");
}

TEST(DrawFile, KeepsContestNumbersOfTheFile) {
  EXPECT_EQ(as_csv("#77#07/01/1939#BA#1#2#3#4#5*\n#78#14/01/1939#BA#1#2#3#4#5"),
            "1939-01-07,77,BA,1,2,3,4,5\n1939-01-14,78,BA,1,2,3,4,5\n");
  EXPECT_EQ(as_csv("date,wheel,n1,n2,n3,n4,n5,contest\n1939-01-07,BA,1,2,3,4,5,9\n1939-01-14,BA,1,2,3,4,5,\n"),
            "1939-01-07,9,BA,1,2,3,4,5\n1939-01-14,2,BA,1,2,3,4,5\n");
}

TEST(DrawFile, ARepeatedRowCountsOnce) {
  const DrawFile file = parse_draw_file(
      "1939/01/07\tBA\t58\t22\t47\t49\t69\n1939/01/07\tCA\t1\t2\t3\t4\t5\n07/01/1939\tbari\t58\t22\t47\t49\t69\n", "x");
  EXPECT_EQ(file.draws.rows.size(), 2U);
  EXPECT_EQ(file.draws.read, 3U);
  EXPECT_EQ(file.draws.repeated, 1U);
  EXPECT_TRUE(file.draws.rejected.empty());
}

TEST(DrawFile, NamesLineAndReason) {
  struct Row {
    std::string text;
    const char* rejections;
  };
  const std::string good = "1939/01/07\tBA\t58\t22\t47\t49\t69\n";
  const std::string record = "#1#07/01/1939#BA#1#2#3#4#5*\n";
  const std::vector<Row> rows{
      {good + "1939/01/07\tCA\t58\t22\t47\t49\n", "line 2: 6 fields where 7 are needed\n"},
      {good + "\n\n1939/01/07\tCA\t58\t22\t47\t49\t69\t70\n", "line 4: 8 fields where 7 are needed\n"},
      {good + "rubbish\n", "line 2: 1 field where 7 are needed\n"},
      {good + "1939/02/30\tBA\t58\t22\t47\t49\t69\n", "line 2: \"1939/02/30\" is no date \n"},
      {good + "1939/01/07\tXX\t58\t22\t47\t49\t69\n", "line 2: \"XX\" is no wheel \n"},
      {good + "1939/01/07\tBA\t58\t22\t47\t49\t70\n", "line 2: BA of 1939-01-07 contradicts line 1\n"},
      {good + "1939/01/14\tBA\t1\t2\t3\t4\t4\n" + "1939/01/14\tCA\t1\t2\t3\t4\t91\n",
       "line 2: number 4 comes twice\nline 3: number 91 is not one of 1 to 90\n"},
      {header + std::string("1939-01-07,BA,1,2,3,4,5\n1939-01-07,BA,1,2,3,4\n"),
       "line 3: 6 fields where 7 are needed\n"},
      {header + std::string("1939-01-07,BA,1,2,3,4,5\r\n\r\n1939-01-07,CA,1,2,3,4,0\r\n"),
       "line 4: number 0 is not one of 1 to 90\n"},
      {record + "#1#07/01/1939#CA#1#2#3#4\n", "line 2: 8 fields where 9 are needed\n"},
      {record + record + "#2#07/01/1939#BA#1#2#3#4#5*\n", "line 3: BA of 1939-01-07 contradicts line 1\n"},
      {record + "*" + record, "line 2: 1 field where 9 are needed\n"},
      {record + "#x#14/01/1939#BA#1#2#3#4#5", "line 2: contest \"x\" is no number of 1 to 32767\n"}};
  for (const Row& row : rows) EXPECT_EQ(rejections(row.text), row.rejections) << row.text;
}

TEST(DrawFile, SaysWhatIsWrongWithTheWhole) {
  struct Row {
    std::string text;
    const char* begins;
  };
  const std::vector<Row> rows{{"", "x.csv is empty"},
                              {"\xEF\xBB\xBF\r\n\n", "x.csv is empty"},
                              {"hello", "x.csv holds no draws: line 1 begins \"hello\""},
                              {header, "x.csv has a header and no draws"},
                              {"1939-01-07,XX,1,2,3,4,5\n", "x.csv, line 1: column \"1939-01-07\" is unknown"},
                              {"1939-01-07,BA,1,2,3,4,5\n", "none"},
                              {"date,wheel,n1,n2,n3,n4\n", "x.csv, line 1: column \"n5\" is missing"},
                              {"date,wheel,n1,n2,n3,n4,n5,n5\n", "x.csv, line 1: column \"n5\" comes twice"},
                              {header + std::string("1939-01-07,BA,1,2,3,4,5\n"), "none"}};
  for (const Row& row : rows) {
    const std::string what = failure_of(row.text);
    EXPECT_EQ(what.substr(0, std::string_view(row.begins).size()), row.begins);
  }
}

TEST(DrawFile, NamesTwentyErrorsAndCountsTheRest) {
  std::string text = header;
  for (int i = 0; i < 25; ++i) text += "1939-01-07,XX,1,2,3,4,5\n";
  const std::string what = failure_of(text);
  EXPECT_NE(what.find("x.csv has 25 rows in error, nothing was changed"), std::string::npos) << what;
  EXPECT_NE(what.find("\n  line 21: "), std::string::npos) << what;
  EXPECT_EQ(what.find("\n  line 22: "), std::string::npos) << what;
  EXPECT_TRUE(what.ends_with("\n  and 5 more")) << what;
}

TEST(DrawFile, ControlCharactersDoNotReachTheScreen) {
  EXPECT_EQ(failure_of("\033[2Jx").find('\033'), std::string::npos);
}

}  // namespace
}  // namespace vestara
