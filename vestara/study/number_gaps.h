#pragma once  // for hosts

#include <cstdint>
#include <optional>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// Whose distances are asked for, and in which draws. Days count from 1899-12-30.
struct NumberGapQuestion {
  std::vector<int16_t> numbers;  ///< one, or two in ascending order
  int16_t wheel = 0;             ///< enumerator; 0 for all
  bool without_national = false;
  std::optional<int32_t> from;
  std::optional<int32_t> to;

  bool is_pair() const { return numbers.size() == 2; }
};

/// The distances between the appearances of a number or a pair, newest first. They count draws of the wheel,
/// or dates when it is of all wheels.
struct NumberGaps {
  int64_t appearances = 0;
  std::optional<int64_t> current_delay;  ///< draws since the last appearance; nothing without one
  std::vector<int32_t> distances;        ///< one less than there are appearances

  // Nothing where there are too few distances.
  std::optional<double> mean;
  std::optional<double> least;
  std::optional<double> most;
  std::optional<double> deviation;  ///< of a sample

  /// The days of the appearances, counted from 1899-12-30; none when the archive tells them otherwise than the
  /// library does.
  std::vector<int32_t> days;
};

/// Raises what the loads of vestara/distances raise; Failure (database) when the archive cannot be read.
VESTARA_API NumberGaps load_number_gaps(const Archive& archive, const NumberGapQuestion& question);

/// Wheels in a draw of the question: one, or as many as a date of its period had in the mean. Failure (database).
VESTARA_API double wheels_in_draw(const Archive& archive, const NumberGapQuestion& question);

}  // namespace vestara
