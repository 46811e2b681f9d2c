#include "records/fields.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "automation/coercion.h"
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

// An index behind a property that takes none goes to the collection that the property gives, and so does its name.
TEST(Fields, AnIndexOfThePropertyKeepsItsName) {
  const Ref<StaticRecordSet> rows =
      automation::make<StaticRecordSet>(std::vector<ColumnHeader>{{"n"}, {"Ba"}}, std::make_unique<OneRow>());
  const struct {
    std::vector<std::string_view> names;
    const char* found;
  } table[] = {{{}, "Ba"}, {{"index"}, "Ba"}, {{"INDEX"}, "Ba"}, {{"place"}, "error 448"}};
  for (const auto& row : table) {
    std::vector<Variant> arguments{Variant("ba")};
    std::string found;
    try {
      const Variant field = rows->call("Fields", automation::InvokeKind::get, arguments, row.names);
      found = automation::to_text(
          (*field.get_if<Ref<automation::Object>>())->call("Name", automation::InvokeKind::get, {}));
    } catch (const automation::RunTimeError& error) {
      found = "error " + std::to_string(error.number());
    }
    EXPECT_EQ(found, row.found);
  }
}

}  // namespace
}  // namespace records
