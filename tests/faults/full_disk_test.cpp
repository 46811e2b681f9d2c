#include <gtest/gtest.h>

#include <string>

#include "automation/error.h"
#include "dorvane/connector.h"
#include "tests/faults/quota_vfs.h"
#include "tests/support/log_capture.h"
#include "tests/support/temporary_folder.h"
#include "vestara/archive/lotto.h"

namespace faults {
namespace {

using automation::Ref;

constexpr int64_t plenty = int64_t{1} << 40;

class FullDisk : public testing::Test {
 protected:
  FullDisk() : connector_(automation::make<dorvane::DbConnector>()) {
    EXPECT_TRUE(connector_->Open("sqlite:" + folder_.path_to("archive.sqlite"))) << connector_->LastError();
    EXPECT_TRUE(connector_->CreateSchema()) << connector_->LastError();
    lotto_.ActiveConnection(connector_);
    lotto_.FileUpdate(update_file(3000, "12/11/2005"));
  }

  /// An update file of so many rows of one date.
  std::string update_file(int rows, const std::string& date) const {
    std::string text;
    for (int i = 0; i < rows; ++i)
      text += (i == 0 ? "" : "*") + ("#" + std::to_string(i % 200 + 1) + "#" + date + "#BA#1#2#3#4#5");
    return folder_.file("update.txt", text);
  }

  /// The import inside one transaction, as a careful host does it. True when it was kept.
  bool import_in_a_transaction() {
    try {
      connector_->BeginTrans();
      if (!lotto_.UpdateTblStorico()) {
        connector_->RollbackTrans();
        return false;
      }
      connector_->CommitTrans();
      return true;
    } catch (const automation::RunTimeError&) {
      return false;
    }
  }

  int32_t stored() {
    Ref<vestara::RecordSet> rows;
    if (!connector_->OpenRecordset(rows, "SELECT count(*) AS n FROM storico")) return -1;
    return rows->whole_number(rows->column("n"));
  }

  QuotaFileSystem file_system_{plenty};
  testing_support::TemporaryFolder folder_;
  testing_support::LogCapture log_;
  Ref<dorvane::DbConnector> connector_;
  vestara::cLotto lotto_;
};

TEST_F(FullDisk, LeavesTheOldArchiveWhereverItFillsUp) {
  ASSERT_TRUE(import_in_a_transaction());
  ASSERT_EQ(stored(), 3000);
  lotto_.FileUpdate(update_file(4000, "15/11/2005"));
  int refusals = 0;
  bool kept = false;
  for (int64_t bytes = 0; !kept; bytes += 25000) {
    QuotaFileSystem::allow(bytes);
    kept = import_in_a_transaction();
    const bool full = QuotaFileSystem::refused();
    QuotaFileSystem::allow(plenty);
    if (kept) break;
    ASSERT_TRUE(full) << bytes << ": " << connector_->LastError();
    EXPECT_NE(connector_->LastError().find("disk is full"), std::string::npos) << connector_->LastError();
    ASSERT_EQ(stored(), 3000) << bytes;
    ASSERT_EQ(lotto_.GetMaxDateStorico(), automation::Variant("12/11/2005")) << bytes;
    ++refusals;
  }
  EXPECT_GT(refusals, 5);
  EXPECT_EQ(stored(), 4000);
}

TEST_F(FullDisk, ARefusedChangeOutsideATransactionChangesNothing) {
  ASSERT_TRUE(import_in_a_transaction());
  QuotaFileSystem::allow(0);
  EXPECT_FALSE(connector_->ExecuteSql("DELETE FROM storico"));
  EXPECT_FALSE(connector_->ExecuteSql("INSERT INTO storico(estr1)VALUES(1),(2)"));
  QuotaFileSystem::allow(plenty);
  EXPECT_EQ(stored(), 3000);
}

}  // namespace
}  // namespace faults
