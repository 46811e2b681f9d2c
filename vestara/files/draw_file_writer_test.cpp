#include "vestara/files/draw_file_writer.h"

#include <gtest/gtest.h>

#include "automation/date.h"
#include "vestara/draws/synthetic_draws.h"
#include "vestara/files/contest_numbers.h"
#include "vestara/files/draw_file.h"

namespace vestara {
namespace {

std::vector<DrawRow> some_draws() {
  return {{automation::day_from_civil(1871, 1, 7), 1, 3, {15, 71, 18, 64, 81}},
          {automation::day_from_civil(1871, 1, 7), 1, 10, {29, 52, 31, 80, 7}},
          {automation::day_from_civil(2026, 8, 21), 134, 11, {90, 1, 2, 3, 4}}};
}

std::string written(const std::vector<DrawRow>& rows, DrawFileWriter writer) {
  std::string text;
  writer.begin(text);
  for (const DrawRow& row : rows) writer.add(text, row);
  return text;
}

TEST(DrawFileWriter, WritesEachForm) {
  struct Row {
    DrawFormat format;
    ContestColumn contest;
    const char* text;
  };
  for (const Row& row :
       {Row{DrawFormat::csv, ContestColumn::absent,
            "date,wheel,n1,n2,n3,n4,n5\n1871-01-07,FI,15,71,18,64,81\n1871-01-07,VE,29,52,31,80,7\n"
            "2026-08-21,RN,90,1,2,3,4\n"},
        {DrawFormat::csv, ContestColumn::present,
         "date,contest,wheel,n1,n2,n3,n4,n5\n1871-01-07,1,FI,15,71,18,64,81\n1871-01-07,1,VE,29,52,31,80,7\n"
         "2026-08-21,134,RN,90,1,2,3,4\n"},
        {DrawFormat::tsv, ContestColumn::absent,
         "1871/01/07\tFI\t15\t71\t18\t64\t81\n1871/01/07\tVE\t29\t52\t31\t80\t7\n2026/08/21\tRN\t90\t1\t2\t3\t4\n"},
        {DrawFormat::update, ContestColumn::absent,
         "#1#07/01/1871#FI#15#71#18#64#81*\n#1#07/01/1871#VE#29#52#31#80#7*\n#134#21/08/2026#RN#90#1#2#3#4"}})
    EXPECT_EQ(written(some_draws(), DrawFileWriter(row.format, row.contest)), row.text);
}

TEST(DrawFileWriter, DayZeroHasADateFromTheStart) {
  const std::vector<DrawRow> draws{{0, 1, 1, {1, 2, 3, 4, 5}}, {0, 1, 2, {1, 2, 3, 4, 5}}};
  EXPECT_EQ(written(draws, DrawFileWriter(DrawFormat::tsv)),
            "1899/12/30\tBA\t1\t2\t3\t4\t5\n1899/12/30\tCA\t1\t2\t3\t4\t5\n");
}

TEST(DrawFileWriter, WhatIsWrittenReadsBack) {
  std::vector<DrawRow> draws;
  synthetic_draws(7, automation::day_from_civil(2004, 12, 1), automation::day_from_civil(2005, 7, 31),
                  [&](const DrawRow& row) {
                    draws.push_back(row);
                    return true;
                  });
  number_contests(draws);
  for (const DrawFormat format : {DrawFormat::csv, DrawFormat::tsv, DrawFormat::update}) {
    const std::string text = written(draws, DrawFileWriter(format));
    DrawFile file = parse_draw_file(text, "x");
    number_contests(file.draws.rows);
    EXPECT_EQ(file.format, format);
    EXPECT_TRUE(file.draws.rejected.empty());
    ASSERT_EQ(file.draws.rows.size(), draws.size());
    for (size_t i = 0; i < draws.size(); ++i) {
      EXPECT_TRUE(same_draw(file.draws.rows[i], draws[i]));
      EXPECT_EQ(file.draws.rows[i].contest, draws[i].contest);
    }
    EXPECT_EQ(written(file.draws.rows, DrawFileWriter(format)), text);
  }
}

}  // namespace
}  // namespace vestara
