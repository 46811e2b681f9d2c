#include "vestara/keeping/history_text.h"

#include <gtest/gtest.h>

#include "tests/support/values.h"

namespace vestara {
namespace {

using testing_support::error_of;

TEST(HistoryText, RecordsAndTheirTuples) {
  const struct {
    const char *what, *record, *tuple;
  } rows[] = {
      {"a plain record", "#4521#15/11/2026#BA#12#45#3#88#67", "(4521,'2026-11-15','BA',12,45,3,88,67)"},
      {"a line break before it", "\r\n#1#07/01/1871#RN#1#2#3#4#5", "(1,'1871-01-07','RN',1,2,3,4,5)"},
      {"field 0 holds anything", "x'y#1#15.11.2026#BA#1#2#3#4#5", "(1,'2026-11-15','BA',1,2,3,4,5)"},
      {"further fields", "#1#2026-11-15#BA#1#2#3#4#5#6#7\r\n", "(1,'2026-11-15','BA',1,2,3,4,5)"},
      {"leading zeros, blanks, words", "#1#15/11/2026#BA#07#x## 9#90th", "(1,'2026-11-15','BA',7,0,0,9,90)"},
      {"signs and bounds", "#1#15/11/2026#BA#-3#+4#32767#-32768#1.9", "(1,'2026-11-15','BA',-3,4,32767,-32768,1)"},
      {"contest number as it stands", "# 45 21 #15/11/2026#BA#1#2#3#4#5", "( 45 21 ,'2026-11-15','BA',1,2,3,4,5)"},
      {"no contest number, no wheel", "##15/11/2026##1#2#3#4#5", "(,'2026-11-15','',1,2,3,4,5)"},
      {"a date that is none", "#1#31/04/2026#BA#1#2#3#4#5", "(1,NULL,'BA',1,2,3,4,5)"},
      {"no date", "#1##BA#1#2#3#4#5", "(1,NULL,'BA',1,2,3,4,5)"},
      {"the time of day stays out", "#1#15/11/2026 10:14#BA#1#2#3#4#5", "(1,'2026-11-15','BA',1,2,3,4,5)"},
      {"a quote in the wheel is not escaped", "#1#15/11/2026#B'A#1#2#3#4#5", "(1,'2026-11-15','B'A',1,2,3,4,5)"},
      {"eight empty fields", "########", "(,NULL,'',0,0,0,0,0)"}};
  for (const auto& row : rows) EXPECT_EQ(history_tuple(parse_history_record(row.record)), row.tuple) << row.what;
}

TEST(HistoryText, RecordsThatFail) {
  const struct {
    const char *what, *record;
    int32_t number;
  } rows[] = {{"empty", "", 9},
              {"line break alone", "\r\n", 9},
              {"eight fields", "#1#15/11/2026#BA#1#2#3#4", 9},
              {"beyond 16 bits", "#1#15/11/2026#BA#1#2#3#4#32768", 6},
              {"far beyond", "#1#15/11/2026#BA#99999999999#2#3#4#5", 6},
              {"below 16 bits", "#1#15/11/2026#BA#1#-32769#3#4#5", 6}};
  for (const auto& row : rows) EXPECT_EQ(error_of([&] { parse_history_record(row.record); }), row.number) << row.what;
}

TEST(HistoryText, Statements) {
  EXPECT_EQ(history_delete_statement(), "DELETE FROM storico");
  EXPECT_EQ(
      history_insert_statement("(4521,'2026-11-15','BA',12,45,3,88,67)"),
      "INSERT INTO "
      "storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES(4521,'2026-11-15','BA',12,45,3,88,67)");
  EXPECT_EQ(history_insert_statement("(1,NULL,'',0,0,0,0,0),(2,NULL,'',0,0,0,0,0)"),
            "INSERT INTO "
            "storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES(1,NULL,'',0,0,0,0,0),(2,NULL,'',"
            "0,0,0,0,0)");
  EXPECT_EQ(rows_per_statement, 1000);
}

}  // namespace
}  // namespace vestara
