#include "hosts/cli/archive/stored_systems.h"

#include <gtest/gtest.h>

#include "hosts/cli/failure.h"
#include "hosts/cli/output/output_forms.h"
#include "tests/support/temporary_folder.h"
#include "vestara/keeping/saved_systems.h"

namespace vestara::host {
namespace {

class StoredSystems : public testing::Test {
 protected:
  void add(int32_t id, const std::string& title, const std::string& kind, const std::string& combinations) {
    run("INSERT INTO tSistemi VALUES(" + std::to_string(id) + ",'" + title + "',NULL,'1,2',2," + std::to_string(id) +
        ",2,0,'" + kind + "')");
    run("INSERT INTO tSistemaDetail(idSis,combinazione) VALUES(" + std::to_string(id) + ",'" + combinations + "')");
  }
  void run(const std::string& statement) {
    EXPECT_TRUE(session_.connector()->ExecuteSql(statement)) << session_.connector()->LastError();
  }
  /// "1 3": the ids in their order.
  std::string found(const SystemFilter& filter) {
    std::string ids;
    for (const StoredSystem& system : stored_systems(session_, filter))
      ids.append(ids.empty() ? "" : " ").append(cell_text(system.id));
    return ids;
  }

  testing_support::TemporaryFolder folder_;
  ArchiveSession session_ = ArchiveSession::for_import("sqlite:" + folder_.path_to("a.sqlite"));
};

TEST_F(StoredSystems, FiltersMeanWhatTheySay) {
  add(5, "plain", "U", "1,2");
  add(2, "50% it''s", "U", "1,2");
  add(3, "a_b \\\\ c", "S", "1,2");
  struct Row {
    SystemFilter filter;
    const char* ids;
  };
  for (const Row& row :
       {Row{{}, "2 3 5"}, Row{{.title = "%"}, "2"}, Row{{.title = "_"}, "3"}, Row{{.title = "\\"}, "3"},
        Row{{.title = "'"}, "2"}, Row{{.title = "PLAIN"}, "5"}, Row{{.title = "50"}, "2"}, Row{{.title = "5_%"}, ""},
        Row{{.description = "x"}, ""}, Row{{.kind = "S"}, "3"}, Row{{.numbers = 2}, "2 3 5"}, Row{{.numbers = 3}, ""},
        Row{{.size = 2, .bets = 5}, "5"}, Row{{.bets = 5}, "5"}, Row{{.guarantee = 1}, ""}})
    EXPECT_EQ(found(row.filter), row.ids) << row.filter.title;
}

// Where the key is no primary key, rows come as they were put in.
TEST_F(StoredSystems, AreInTheOrderOfTheirIdsWhateverThatOfTheTable) {
  run("DROP TABLE tSistemi");
  run("CREATE TABLE tSistemi(idSis INT,titolo TEXT,descrizione TEXT,numeri TEXT,qtaNumeri INT,nGiocate INT,"
      "kColonne INT,garanzia INT,sisTipo TEXT)");
  for (const int32_t id : {5, 2, 11, 3}) add(id, "", "U", "1,2");
  EXPECT_EQ(found({}), "2 3 5 11");
}

TEST_F(StoredSystems, CombinationsWithAndWithoutPositions) {
  add(1, "", "U", "2,1");
  add(2, "", "S", "2,1");
  run("INSERT INTO tSistemaDetail(idSis,combinazione) VALUES(1,'1')");
  EXPECT_EQ(stored_combinations(session_, 1).text, "2,1\r\n1");
  EXPECT_EQ(stored_combinations(session_, 1).count, 2U);
  EXPECT_EQ(stored_combinations(session_, 1, "30,40").text, "40,30\r\n30");
  EXPECT_EQ(stored_combinations(session_, 2, "30,40").text, "2,1");
  EXPECT_EQ(stored_combinations(session_, 3).count, 0U);
}

TEST_F(StoredSystems, AnUnknownId) {
  add(1, "mine", "U", "1,2");
  EXPECT_EQ(cell_text(system_with_id(session_, 1).title), "mine");
  try {
    system_with_id(session_, 2);
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.kind(), FailureKind::nothing_found);
    EXPECT_STREQ(failure.what(), "no system is saved as 2; vestara system list shows those that are");
  }
}

}  // namespace
}  // namespace vestara::host
