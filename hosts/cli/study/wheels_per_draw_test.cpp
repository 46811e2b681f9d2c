#include "vestara/study/wheels_per_draw.h"

#include <gtest/gtest.h>

#include "hosts/cli/archive/archive_session.h"
#include "tests/support/temporary_folder.h"

namespace vestara::host {
namespace {

TEST(WheelsPerDraw, AreReadFromTheArchive) {
  const testing_support::TemporaryFolder folder;
  const ArchiveSession session = ArchiveSession::for_import("sqlite:" + folder.path_to("a"));
  ASSERT_TRUE(session.connector()->ExecuteSql(
      "INSERT INTO storico VALUES(1,'2005-05-04','BA',1,2,3,4,5,1),(2,'2005-05-04','VE',1,2,3,4,5,1),"
      "(3,'2005-05-07','BA',1,2,3,4,5,2),(4,'2005-05-07','VE',0,0,0,0,0,2),(5,'2005-05-10','VE',1,2,NULL,4,5,3),"
      "(6,'2005-05-12','RN',1,2,3,4,5,4),(7,'2005-05-12','VE',1,2,3,4,5,5)"));
  struct Row {
    WheelSelection wheels;
    std::optional<int32_t> from;
    int64_t draws, drawn;
  };
  constexpr int32_t the_seventh = 38479;
  for (const Row& row : {Row{{true, ""}, {}, 4, 5},
                         {{false, "VE"}, {}, 2, 2},
                         {{false, "BA,VE"}, {}, 3, 4},
                         {{true, ""}, the_seventh, 3, 3},
                         {{false, "RN"}, the_seventh, 1, 1},
                         {{false, "MI"}, {}, 0, 0}}) {
    const WheelsPerDraw draws(session, DrawRange{row.wheels, row.from, {}});
    EXPECT_EQ(draws.draws(), row.draws) << row.wheels.codes;
    EXPECT_EQ(draws.wheels(), row.drawn) << row.wheels.codes;
  }
}

}  // namespace
}  // namespace vestara::host
