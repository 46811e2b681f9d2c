#include "dorvane/sqlite/open_rows.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <vector>

#include "automation/ref.h"
#include "records/static_recordset.h"

namespace dorvane::sqlite {
namespace {

/// The numbers 1 to 3, for a set that is listed as long as it lasts.
class ThreeRows final : public records::RowSource {
 public:
  explicit ThreeRows(OpenRows& open) : open_(open) {}
  void taken_by(records::StaticRecordSet& set) override { ticket_.emplace(open_, set); }
  bool fetch(std::vector<records::ColumnStore>& columns) override {
    if (fetched_ == 3) return false;
    columns[0].append_whole(++fetched_);
    return true;
  }

 private:
  OpenRows& open_;
  int fetched_ = 0;
  std::optional<OpenRows::Ticket> ticket_;
};

automation::Ref<records::StaticRecordSet> listed_in(OpenRows& open) {
  return automation::make<records::StaticRecordSet>(std::vector<records::ColumnHeader>{{"n"}},
                                                    std::make_unique<ThreeRows>(open));
}

TEST(OpenRows, ASetIsListedUntilItsLastRow) {
  using Rows = automation::Ref<records::StaticRecordSet>;
  struct Row {
    void (*ends)(Rows&);
    bool listed;
  };
  for (const Row& row :
       {Row{[](Rows&) {}, true}, Row{[](Rows& rows) { rows->move(2); }, true},
        Row{[](Rows& rows) { rows->move_last(); }, false}, Row{[](Rows& rows) { rows->close(); }, false},
        Row{[](Rows& rows) { rows = nullptr; }, false}}) {
    OpenRows open;
    auto rows = listed_in(open);
    EXPECT_FALSE(open.empty());
    row.ends(rows);
    EXPECT_EQ(open.empty(), !row.listed);
    rows = nullptr;
  }
}

TEST(OpenRows, CompleteSetsNeedTheirSourceNoMore) {
  OpenRows open;
  const auto first = listed_in(open);
  const auto second = listed_in(open);
  first->move_next();
  open.complete();
  EXPECT_TRUE(open.empty());
  EXPECT_EQ(first->whole_number({0}), 2);
  EXPECT_EQ(first->record_count(), 3);
  EXPECT_EQ(second->record_count(), 3);
  open.complete();
}

}  // namespace
}  // namespace dorvane::sqlite
