#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "automation/date.h"
#include "tests/support/random.h"

namespace testing_support {

/// One row of `storico`, without its key.
struct ArchiveRow {
  automation::Date date;
  std::optional<int32_t> contest;
  std::string wheel;
  std::array<std::optional<int32_t>, 5> numbers;
};
using Archive = std::vector<ArchiveRow>;

/// What a random archive looks like. "One in n" is a chance; 0 is never.
struct ArchiveShape {
  int32_t dates = 20;
  int32_t days_apart = 7;           ///< at most, between two dates
  int32_t highest_number = 90;      ///< few distinct numbers make hits frequent; a row repeats one below 5
  size_t missing_wheel = 4;         ///< a wheel that was not drawn on a date
  size_t missing_date = 0;          ///< a date on which no wheel was drawn
  size_t zero_row = 0;              ///< five zeros
  size_t null_number = 0;           ///< of every number
  size_t second_contest = 0;        ///< a date with a second contest, on wheels of its own
  size_t null_contest = 0;          ///< a draw without a contest number
  std::vector<std::string> wheels;  ///< of the archive; none is all eleven
};
/// A shape of its own for every archive: from empty to a few dozen dates, with every oddity at times.
ArchiveShape random_shape(Random& random);
/// Rows by date, then by contest, the wheels of each in no order.
Archive random_archive(Random& random, const ArchiveShape& shape);

/// The eleven aliases, by enumerator.
const std::vector<std::string>& all_aliases();
/// One INSERT of all rows; "" for an empty archive.
std::string insert_statement(const Archive& archive);
/// INSERTs of some hundred rows each, for an archive that is too long for one.
std::vector<std::string> insert_statements(const Archive& archive);

}  // namespace testing_support
