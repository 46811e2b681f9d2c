#pragma once

#include <gtest/gtest.h>

#include "tests/support/gap_oracle.h"
#include "vestara/distances/hit_distances.h"

namespace testing_support {

/// What the getters of an object say, item by item.
inline std::vector<GapItem> items_of(const vestara::cDistanze& gaps) {
  std::vector<GapItem> items;
  for (int32_t i = 1; i <= gaps.ItemCount(); ++i)
    items.push_back({gaps.Distance(i), gaps.DatePrec(i), gaps.DateLast(i), gaps.DateDiff(i), gaps.Ruota(i),
                     gaps.combinazione(i), gaps.ConcorsoNumero(i)});
  return items;
}

inline GapFigures figures_of(const vestara::cDistanze& gaps) {
  return {gaps.GetAVGDistance(), gaps.GetAVGDistanceDays(), gaps.GetMinDistance(),
          gaps.GetMaxDistance(), gaps.GetMinDistanceDays(), gaps.GetMaxDistanceDays()};
}

}  // namespace testing_support
