#include "records/fields.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "automation/error.h"
#include "records/static_recordset.h"

namespace records {
namespace {

using automation::Ref;
using automation::Variant;

/// One row: 1, "BA".
class OneRow final : public RowSource {
 public:
  bool fetch(std::vector<ColumnStore>& columns) override {
    if (std::exchange(fetched_, true)) return false;
    columns[0].append_whole(1);
    columns[1].append_text("BA");
    return true;
  }

 private:
  bool fetched_ = false;
};

/// The name of the field, or "error 3265".
std::string name_of(const Fields& fields, const Variant& index) {
  try {
    return fields.Item(index)->Name();
  } catch (const automation::RunTimeError& error) {
    return "error " + std::to_string(error.number());
  }
}

TEST(Fields, AnItemIsFoundByItsPlaceItsNameOrWhatAnObjectStandsFor) {
  const Ref<RecordSet> rows =
      automation::make<StaticRecordSet>(std::vector<ColumnHeader>{{"n"}, {"Ba"}}, std::make_unique<OneRow>());
  const Fields fields(rows);
  EXPECT_EQ(fields.Count(), 2);
  const struct {
    const char* what;
    Variant index;
    const char* name;
  } table[] = {{"first", 0, "n"},
               {"last", 1, "Ba"},
               {"behind the last", 2, "error 3265"},
               {"in front of the first", -1, "error 3265"},
               {"rounded", 0.6, "Ba"},
               {"a name", "BA", "Ba"},
               {"a name with its table", "s.n", "n"},
               {"another name", "m", "error 3265"},
               {"a text of digits is a name", "1", "error 3265"},
               {"Null", automation::Null{}, "error 94"},
               {"a field that holds a place", Ref<automation::Object>(automation::make<Field>(rows, Column{0})), "Ba"},
               {"a field that holds a name", Ref<automation::Object>(automation::make<Field>(rows, Column{1})), "Ba"},
               {"nothing", Ref<automation::Object>(), "error 91"}};
  for (const auto& row : table) EXPECT_EQ(name_of(fields, row.index), row.name) << row.what;
}

}  // namespace
}  // namespace records
