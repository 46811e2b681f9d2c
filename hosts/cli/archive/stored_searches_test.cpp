#include "hosts/cli/archive/stored_searches.h"

#include <gtest/gtest.h>

#include "hosts/cli/output/output_forms.h"

namespace vestara::host {
namespace {

using automation::Date;
using automation::Null;
using automation::Variant;

StoredSearch usual() {
  return {int32_t{7}, "name", "5,12,33", int16_t{2}, "BA,NA", Null{}, Null{}, Date::from_day(45000)};
}

TEST(StoredSearches, ValuesAreShownAsTheyAre) {
  StoredSearch search = usual();
  search.name = "50% \\ 'n'";
  search.numbers = Null{};
  search.from = Date::from_serial(38392.5);
  search.to = "soon";
  std::string shown;
  for (const Cell& cell : stored_values(search)) shown += cell_text(cell) + "|";
  EXPECT_EQ(shown, "7|50% \\ 'n'||2|BA,NA|2005-02-09 12:00:00|soon|2023-03-15|");
  EXPECT_EQ(stored_names().size(), stored_values(search).size());
  EXPECT_TRUE(std::holds_alternative<int64_t>(stored_values(search)[3]));
}

}  // namespace
}  // namespace vestara::host
