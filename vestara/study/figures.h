#pragma once  // installed

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "vestara/draws/draw_period.h"
#include "vestara/draws/wheel_set.h"
#include "vestara/foundation/export.h"
#include "vestara/study/number_set.h"

// The plain figures as typed functions over loaded draws (draws/archive_draws.h). A selection without draws has no
// rows.

namespace vestara {
class LoadedDraws;
}

namespace vestara::study {

using Draws = std::shared_ptr<const LoadedDraws>;

/// The wheels (one at least) and the period of a question.
struct Selection {
  WheelSet wheels = WheelSet::all();
  DrawPeriod period;
};

/// The figures of one thing (a number, a group, a set with its hits) in the draws of a wheel, or of wheels together.
struct Figures {
  int32_t draws = 0;        ///< of the selection, 1 at least
  int32_t times = 0;        ///< draws in which the thing occurred
  double expected = 0;      ///< how many times chance would give
  std::optional<double> z;  ///< (times - expected) / standard deviation; nothing where chance leaves no choice
  int32_t delay = 0;        ///< draws since the last occurrence: 0 for the newest draw, all draws when there was none
  std::optional<automation::Date> last;         ///< its date
  int32_t record = 0;                           ///< the longest run of draws without it, both ends included
  std::optional<automation::Date> record_from;  ///< first draw of that run; the earliest of equally long ones
  std::optional<automation::Date> record_to;    ///< its last draw
};

struct NumberFigures {
  std::string wheel;   ///< code, or the name of wheels together
  int32_t number = 0;  ///< 1 to 90
  Figures figures;
};

/// Every number on every wheel that has draws, wheels in their order.
VESTARA_API std::vector<NumberFigures> number_figures(const Draws& draws, const Selection& selection, WheelView view);

/// What groups are ranked by, the largest first.
enum class RankedBy : uint8_t { delay, times, record, z };

struct GroupQuestion {
  Selection selection;
  WheelView view = WheelView::each;
  size_t size = 2;  ///< numbers of a group, 2 to 5
  RankedBy by = RankedBy::delay;
  size_t top = 100;  ///< groups in the answer, at most; 1 at least
};

struct GroupFigures {
  int32_t rank = 0;              ///< from 1; equal values share the rank of the first of them: 1, 1, 3
  std::string wheel;             ///< code, or the name of wheels together
  std::vector<uint8_t> numbers;  ///< ascending
  Figures figures;
};

/// The first groups of all wheels by what they are ranked by, then by wheel, then by their numbers. Groups of two and
/// three take part whether they occurred or not, groups of four and five only if they did.
VESTARA_API std::vector<GroupFigures> group_figures(const Draws& draws, const GroupQuestion& question);

struct SetQuestion {
  Selection selection;
  WheelView view = WheelView::each;
  std::vector<NamedNumbers> sets;
  int32_t hits = 1;  ///< numbers of a set in an occurrence, at least: 1 to the size of the smallest set, 5 at most
};

struct SetFigures {
  std::string wheel;  ///< code, or the name of wheels together
  NamedNumbers set;
  Figures figures;
};

/// Every set on every wheel that has draws, in the order given.
VESTARA_API std::vector<SetFigures> set_figures(const Draws& draws, const SetQuestion& question);

struct GapQuestion {
  Selection selection;
  WheelView view = WheelView::each;
  Numbers numbers;
  int32_t hits = 1;  ///< numbers that an occurrence holds at least: 1 to their count, 5 at most
};

/// From one occurrence to the next; or from the last one to the newest draw, which has no end.
struct Gap {
  std::string wheel;  ///< code, or the name of wheels together
  automation::Date from;
  std::optional<automation::Date> to;
  int32_t draws = 0;            ///< 1 from a draw to the next; of the open gap the delay
  std::optional<int32_t> days;  ///< between the two dates
};

/// Of every wheel on which something occurred: the open gap, then the others, newest first.
VESTARA_API std::vector<Gap> gaps_of(const Draws& draws, const GapQuestion& question);

/// What one wheel drew on one date.
struct Drawing {
  automation::Date date;
  std::optional<int32_t> contest;    ///< as the archive has it
  int32_t wheel = 0;                 ///< 1 to 11
  std::array<uint8_t, 5> numbers{};  ///< in the order they were drawn
};

/// All drawings of a selection, oldest first, then in the order of wheels.
VESTARA_API std::vector<Drawing> drawings(const Draws& draws, const Selection& selection);

struct SearchQuestion {
  Selection selection;
  Numbers numbers;
  int32_t hits = 1;  ///< numbers that a drawing holds at least: 1 to their count, 5 at most
};

struct FoundDrawing {
  Drawing drawing;
  Numbers numbers;  ///< of the question that came out, ascending
};

/// Every drawing that holds enough of the numbers, newest first, then in the order of wheels.
VESTARA_API std::vector<FoundDrawing> search_drawings(const Draws& draws, const SearchQuestion& question);

/// Draws of a wheel below which nothing is tested, and below which overlap and gaps are not.
inline constexpr int32_t fewest_draws_tested = 100;
inline constexpr int32_t fewest_draws_of_rare_cells = 2000;

/// One test of one wheel. Nothing where it has too few draws, or where the statistic does not exist.
struct FairnessTest {
  std::string wheel;
  std::string_view test;
  std::optional<double> statistic;  ///< chi-square where there are degrees, otherwise standard deviations
  std::optional<int32_t> degrees;   ///< of freedom
  std::optional<double> p;          ///< the chance of such a statistic or a larger one in fair draws
  std::optional<double> p_holm;     ///< p adjusted for all the tests of the answer, by Holm's method
};

/// Whether the draws of each wheel look like those of a fair urn, by eight tests in this order:
///   numbers  how often each number came out: Pearson's statistic times 89/85, since a draw takes five different ones
///   pairs    how often each pair did, without what its single numbers explain already
///   first    which number was drawn first
///   overlap  numbers in common with the draw before: none, one, two, three and more
///   parity   even numbers of a draw
///   sum      mean of the sums of the five
///   serial   correlation of a sum with the next
///   gaps     draws without a number between two with it, in classes of six, against what so many draws can show
/// A wheel without draws has its rows too, with nothing in them; a selection without any draws has none.
/// Sources: Joe 1993 (numbers), Genest, Lockhart and Stephens 2002 (pairs).
VESTARA_API std::vector<FairnessTest> fairness_tests(const Draws& draws, const Selection& selection);

struct BetOdds {
  std::string_view bet;      ///< ambata, ambo, terno, quaterna, cinquina
  double chance = 0;         ///< of at least one win in one draw
  double one_in = 0;         ///< draws for one win on average
  int32_t median_draws = 0;  ///< the least number of draws after which a win is at least as likely as none
};

/// Each bet that can be made on so many numbers (1 to 90), won on at least one of so many wheels (1 to 11).
VESTARA_API std::vector<BetOdds> bet_odds(int32_t numbers, int32_t wheels);

}  // namespace vestara::study
