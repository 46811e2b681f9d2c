#include "automation/collection.h"

#include <gtest/gtest.h>

#include <vector>

#include "automation/error.h"

namespace automation {
namespace {

/// "5,12" by its place, or the number of the error.
Variant item(Object& collection, int32_t place) {
  std::vector<Variant> index{Variant(place)};
  try {
    return collection.invoke(0, InvokeKind::get, index);
  } catch (const RunTimeError& error) {
    return error.number();
  }
}

TEST(Collection, CountsFromOne) {
  const auto collection = make<Collection>();
  EXPECT_EQ(collection->Count(), 0);
  EXPECT_TRUE(item(*collection, 1) == Variant(9));
  collection->add("5,12");
  collection->add("5,33");
  EXPECT_TRUE(collection->call("count", InvokeKind::get, {}) == Variant(2));
  EXPECT_TRUE(item(*collection, 1) == Variant("5,12"));
  EXPECT_TRUE(item(*collection, 2) == Variant("5,33"));
  EXPECT_TRUE(item(*collection, 0) == Variant(9));
  EXPECT_TRUE(item(*collection, 3) == Variant(9));
}

}  // namespace
}  // namespace automation
