#include "hosts/cli/output/count_cell.h"

#include <gtest/gtest.h>

namespace vestara::host {
namespace {

TEST(CountCell, IsANumberWhileItFits) {
  EXPECT_EQ(std::get<int64_t>(count_cell(ways_to_choose(90, 18))), 3789648142708598775);
  EXPECT_EQ(std::get<std::string>(count_cell(ways_to_choose(90, 19))), "14360771909211532200");
}

}  // namespace
}  // namespace vestara::host
