#include "hosts/cli/output/output.h"

#include <gtest/gtest.h>

#include <sstream>

#include "hosts/cli/output/output_forms.h"

namespace vestara::host {
namespace {

Report usual() {
  Report report;
  report.facts = {{"held_before", int64_t{105156}}, {"gone", int64_t{7}}, {"last_date", "2026-08-21"}, {"none", {}}};
  report.listing = "wheels";
  report.row_kind = "wheel";
  report.columns = {"wheel", "draw_dates", "note"};
  report.rows = {{"BA", int64_t{10740}, "a,\"b\""}, {"RN", int64_t{9}, {}}};
  return report;
}

std::string written(const Report& report, const OutputStyle& style) {
  std::ostringstream out;
  write_report(out, report, style);
  return out.str();
}

TEST(Output, EachForm) {
  struct Row {
    OutputFormat format;
    const char* text;
  };
  for (const Row& row :
       {Row{OutputFormat::table,
            "held before  105156\ngone              7\nlast date    2026-08-21\nnone\n\n"
            "wheel  draw dates  note\nBA          10740  a,\"b\"\nRN              9\n"},
        {OutputFormat::csv,
         "name,value\nheld_before,105156\ngone,7\nlast_date,2026-08-21\nnone,\n\n"
         "wheel,draw_dates,note\nBA,10740,\"a,\"\"b\"\"\"\nRN,9,\n"},
        {OutputFormat::jsonl,
         "{\"kind\":\"summary\",\"held_before\":105156,\"gone\":7,\"last_date\":\"2026-08-21\",\"none\":null}\n"
         "{\"kind\":\"wheel\",\"wheel\":\"BA\",\"draw_dates\":10740,\"note\":\"a,\\\"b\\\"\"}\n"
         "{\"kind\":\"wheel\",\"wheel\":\"RN\",\"draw_dates\":9,\"note\":null}\n"},
        {OutputFormat::markdown,
         "| name | value |\n| --- | ---: |\n| held before | 105156 |\n| gone | 7 |\n| last date | 2026-08-21 |\n"
         "| none |  |\n\n| wheel | draw_dates | note |\n| --- | ---: | --- |\n| BA | 10740 | a,\"b\" |\n| RN | 9 |  "
         "|\n"}})
    EXPECT_EQ(written(usual(), {row.format}), row.text);
}

TEST(Output, JsonIsOneObject) {
  Report report = usual();
  report.facts.resize(1);
  report.rows.resize(1);
  EXPECT_EQ(written(report, {OutputFormat::json}),
            "{\n  \"held_before\": 105156,\n  \"wheels\": [\n    {\n      \"wheel\": \"BA\",\n"
            "      \"draw_dates\": 10740,\n      \"note\": \"a,\\\"b\\\"\"\n    }\n  ]\n}\n");
  report.facts = {{"name", "\xFF"}};
  report.listing = {};
  EXPECT_EQ(written(report, {OutputFormat::json}), "{\n  \"name\": \"\xEF\xBF\xBD\"\n}\n");
}

TEST(Output, AnEmptyListing) {
  Report report = usual();
  report.facts = {{"draws", int64_t{0}}};
  report.rows.clear();
  EXPECT_EQ(written(report, {OutputFormat::table}), "draws  0\n");
  EXPECT_EQ(written(report, {OutputFormat::csv}), "name,value\ndraws,0\n\nwheel,draw_dates,note\n");
  EXPECT_EQ(written(report, {OutputFormat::json}), "{\n  \"draws\": 0,\n  \"wheels\": []\n}\n");
  EXPECT_EQ(written(report, {OutputFormat::jsonl}), "{\"kind\":\"summary\",\"draws\":0}\n");
}

TEST(Output, TablesShowControlCharactersAsQuestionMarks) {
  Report report;
  report.facts = {{"name", "a\nb\033[2J\x7F è"}};
  report.listing = "searches";
  report.columns = {"id", "name"};
  report.rows = {{int64_t{1}, "a\tb\r"}};
  EXPECT_EQ(written(report, {OutputFormat::table}), "name  a?b?[2J? è\n\nid  name\n 1  a?b?\n");
}

TEST(Output, TablesAlignByCharacters) {
  for (const char* wide : {"è", "€", "𝄞"}) {
    Report report;
    report.facts = {{wide, "x"}, {"ab", int64_t{1}}};
    report.listing = "searches";
    report.columns = {"a", "n"};
    report.rows = {{wide, int64_t{1}}, {"ab", int64_t{2}}};
    const std::string name = wide;
    EXPECT_EQ(written(report, {OutputFormat::table}), name + "   x\nab  1\n\na   n\n" + name + "   1\nab  2\n");
  }
}

TEST(Output, TextsAreWrittenSoThatTheyReadBack) {
  struct Row {
    const char* text;
    const char* csv;
    const char* markdown;
  };
  for (const Row& row : {Row{"a", "a", "a"},
                         {"a,b", "\"a,b\"", "a,b"},
                         {"a\"b", "\"a\"\"b\"", "a\"b"},
                         {"a\nb", "\"a\nb\"", "a b"},
                         {"a\rb", "\"a\rb\"", "a b"},
                         {"a|b", "a|b", "a\\|b"},
                         {"a\\b", "a\\b", "a\\\\b"},
                         {"a\\|b", "a\\|b", "a\\\\\\|b"}}) {
    Report report;
    report.listing = "searches";
    report.columns = {"name"};
    report.rows = {{row.text}};
    EXPECT_EQ(written(report, {OutputFormat::csv}), std::string("name\n") + row.csv + "\n");
    EXPECT_EQ(written(report, {OutputFormat::markdown}), std::string("| name |\n| --- |\n| ") + row.markdown + " |\n");
  }
}

TEST(Output, JsonEscapesWhatGivesATerminalOrders) {
  struct Row {
    const char* text;
    const char* json;
  };
  for (const Row& row : {Row{"è€𝄞", "è€𝄞"},
                         {"\x1b[2J\x7f", "\\u001b[2J\\u007f"},
                         {"\xC2\x9B 2J", "\\u009b 2J"},
                         {"\xC2\xA0", "\xC2\xA0"},
                         {"\xE2\x80\xAE x \xE2\x81\xA6", "\\u202e x \\u2066"},
                         {"\xD8\x9C", "\\u061c"},
                         {"\xE2\x80\x8D", "\xE2\x80\x8D"}}) {
    Report report;
    report.facts = {{"name", row.text}};
    EXPECT_EQ(written(report, {OutputFormat::jsonl}),
              std::string("{\"kind\":\"summary\",\"name\":\"") + row.json + "\"}\n");
  }
}

TEST(Output, TheLimitIsForTables) {
  OutputStyle style;
  style.table_rows = 1;
  EXPECT_TRUE(written(usual(), style).ends_with("wheel  draw dates  note\nBA          10740  a,\"b\"\nand 1 more\n"));
  style.format = OutputFormat::csv;
  EXPECT_TRUE(written(usual(), style).ends_with("RN,9,\n"));
}

TEST(Output, FurtherFactsStandBehindTheListing) {
  Report report = usual();
  report.facts.resize(1);
  report.rows.resize(1);
  report.blocks = {{"statistics", {{"mean_gap", 12.25}, {"draws_per_hit", Absent{"never"}}}}};
  struct Row {
    OutputFormat format;
    const char* text;  ///< ends so
  };
  for (const Row& row :
       {Row{OutputFormat::table, "\"\n\nmean gap       12.25\ndraws per hit  never\n"},
        {OutputFormat::csv, "\"\n\nname,value\nmean_gap,12.25\ndraws_per_hit,\n"},
        {OutputFormat::json,
         "],"
         "\n  \"statistics\": {\n    \"mean_gap\": 12.25,\n    \"draws_per_hit\": null\n  }\n}\n"},
        {OutputFormat::jsonl, "}\n{\"kind\":\"statistics\",\"mean_gap\":12.25,\"draws_per_hit\":null}\n"},
        {OutputFormat::markdown,
         " |\n\n| name | value |\n| --- | ---: |\n| mean gap | 12.25 |\n| draws per hit | never |\n"}})
    EXPECT_TRUE(written(report, {row.format}).ends_with(row.text)) << written(report, {row.format});
}

TEST(Output, NumbersWithAFraction) {
  struct Row {
    double number;
    const char* for_people;
    const char* for_programs;
  };
  for (const Row& row : {Row{0, "0", "0"},
                         {18, "18", "18"},
                         {100.0 / 18, "5.55556", "5.555555555555555"},
                         {99.9999999, "100", "99.9999999"},
                         {43949268, "43949268", "43949268"},
                         {2.2753507e-06, "0.00000227535", "2.2753507e-06"},
                         {-0.5, "-0.5", "-0.5"},
                         {1234567.5, "1234568", "1234567.5"},
                         {1200000.25, "1200000", "1200000.25"}}) {
    EXPECT_EQ(readable_text(row.number), row.for_people);
    EXPECT_EQ(cell_text(row.number), row.for_programs);
  }
}

TEST(Output, AbsentValuesSayWhyToPeopleOnly) {
  Report report;
  report.listing = "gaps";
  report.columns = {"from", "draws"};
  report.rows = {{"2005-02-09", int64_t{1}}, {Absent{"open"}, Absent{}}};
  EXPECT_EQ(written(report, {OutputFormat::table}), "from        draws\n2005-02-09      1\nopen\n");
  EXPECT_EQ(written(report, {OutputFormat::csv}), "from,draws\n2005-02-09,1\n,\n");
}

TEST(Output, ColourIsForHeadingsOfTables) {
  for (const OutputFormat format : {OutputFormat::csv, OutputFormat::json, OutputFormat::jsonl, OutputFormat::markdown})
    EXPECT_EQ(written(usual(), {format, true}), written(usual(), {format, false}));
  Report report;
  report.facts = {{"draws", int64_t{1}}};
  EXPECT_EQ(written(report, {OutputFormat::table, true}), "\033[1mdraws\033[0m  1\n");
}

}  // namespace
}  // namespace vestara::host
