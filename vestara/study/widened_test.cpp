#include "vestara/study/widened.h"

#include <gtest/gtest.h>

#include <limits>

namespace vestara {
namespace {

TEST(Widened, MeansItsDigits) {
  struct Row {
    float number;
    double wide;
  };
  for (const Row& row : {Row{9.8F, 9.8},
                         {0, 0},
                         {-0.1F, -0.1},
                         {100.0F / 3, 33.333332},
                         {1e30F, 1e30},
                         {7, 7},
                         {std::numeric_limits<float>::max(), 3.4028235e38}})
    EXPECT_EQ(widened(row.number), row.wide);
}

}  // namespace
}  // namespace vestara
