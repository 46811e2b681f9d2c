#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "automation/variant.h"
#include "tests/support/random_archive.h"

// Current delays, computed the slow and obvious way: put the draws in order, list every number with the draws of its
// wheel before it, look for the first of each. Also what the oracle of frequencies needs of it.

namespace testing_support {

/// The draws that a load is asked for, as its arguments have it.
struct DrawQuery {
  automation::Variant from = automation::Missing{};
  automation::Variant to = automation::Missing{};
  std::string wheels;
};

/// What a load leaves behind.
template <class Value>
struct Figures {
  std::vector<Value> cells;                                    ///< 11 times 90, wheel by wheel
  std::vector<std::tuple<int32_t, int32_t, Value>> ranking{};  ///< number, wheel, value: ninety, none after an error
  int32_t error = 0;                                           ///< that ended the load
  size_t rows = 0;                                             ///< that were looked at
};

Figures<int32_t> delays_of(const Archive& archive, const DrawQuery& query);

/// The truth of "`first` AND period AND ruota=w1 OR ruota=w2 …" as SQL has it; nothing is unknown.
using Truth = std::optional<bool>;
Truth is_selected(const ArchiveRow& row, const DrawQuery& query, Truth first);
/// True when all five numbers are positive.
Truth is_complete(const ArchiveRow& row);
/// 1 to 11; 0 for an alias that no wheel has.
int32_t enumerator_of(const std::string& alias);
/// What a row's wheel and number raise: 5, 94, 9 or nothing (0).
int32_t error_in(const std::string& wheel, const std::optional<int32_t>& number);

/// A random archive that at times holds an unknown wheel, single zeros or numbers beyond 90, and at times every number
/// on every wheel.
Archive odd_archive(Random& random);
/// Up to four wheels, unknown and empty ones among them, and bounds of every kind.
DrawQuery random_draw_query(Random& random, const Archive& archive);

}  // namespace testing_support
