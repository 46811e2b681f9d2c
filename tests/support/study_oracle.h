#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/random_archive.h"
#include "tests/support/recordset.h"

// What the class Study answers, computed the slow and obvious way. The draws of a wheel are listed by date, a thing's
// occurrences are places in that list, and every column is counted from those places. A chance is a ratio of whole
// numbers. Answers are tables with the columns of the class: counts are Long, chances Double, dates Date.

namespace testing_support::study {

/// The five numbers of one wheel on one date, in the order of the drawing.
using Numbers = std::array<int32_t, 5>;

struct Draw {
  int32_t day = 0;  ///< as Date counts
  std::optional<int32_t> contest;
  size_t wheel = 0;  ///< index of all_aliases()
  Numbers numbers{};
};
using Draws = std::vector<Draw>;

/// Every row holds a known wheel and five numbers of 1 to 90.
Draws draws_in(const Archive& archive);

enum class Wheels { each, together };

/// Which draws a question is about.
struct Selection {
  std::vector<size_t> wheels;  ///< indexes of all_aliases(), ascending
  std::optional<int32_t> since;
  std::optional<int32_t> until;  ///< included, like `since`
  Wheels taken = Wheels::each;
};

/// The drawings that count as one draw: that of a wheel, or those of a date.
struct Moment {
  int32_t day = 0;
  std::vector<Numbers> drawings;
};

/// The draws that one row is counted from, oldest first. At least one.
struct Series {
  std::string wheel;  ///< as the column of that name shows it
  std::vector<Moment> moments;
};
std::vector<Series> series_of(const Draws& draws, const Selection& selection);

/// Numbers that are looked at together, ascending.
using Group = std::vector<int32_t>;
struct NamedSet {
  std::string name;
  Group numbers;
};
/// Sets that players know by name: decine, decine-popolari, cadenze, figure, gemelli, vertibili, diametrali.
const std::vector<std::string>& families();
std::vector<NamedSet> family(const std::string& name);
/// "5,12,33".
std::string listed(const Group& numbers);

/// Of the C(90,5) drawings, how many hold at least `hits` of `size` numbers.
int64_t drawings_with(int32_t size, int32_t hits);
int64_t binomial(int64_t n, int64_t k);

Table draws(const Draws& draws, const Selection& selection);
Table search(const Draws& draws, const Selection& selection, const Group& numbers, int32_t hits);
Table numbers(const Draws& draws, const Selection& selection);
/// `by` is delay, times, record or z.
Table groups(const Draws& draws, const Selection& selection, size_t size, const std::string& by, size_t top);
Table sets(const Draws& draws, const Selection& selection, const std::vector<NamedSet>& sets, int32_t hits);
Table gaps(const Draws& draws, const Selection& selection, const Group& numbers, int32_t hits);
Table odds(int32_t count, int32_t wheels);

}  // namespace testing_support::study
