#pragma once

#include <cstdint>

namespace vestara {

/// What a walk over draws, from 0 for the oldest, knows of one thing: how often it occurred, when last, and the longest
/// run of successive draws without it.
struct Occurrences {
  int32_t times = 0;
  int32_t last = -1;         ///< the draw of the latest occurrence
  int32_t record = 0;        ///< length of the longest run
  int32_t record_first = 0;  ///< first draw of that run, of the earliest of equally long ones

  /// The thing occurs in a draw: in the latest one or a later one. A second time in one draw counts for nothing.
  void occur(int32_t draw) {
    if (draw == last) return;
    end_run(draw);
    last = draw;
    ++times;
  }
  /// The draws are over: the open run counts like any other.
  void end_run(int32_t draw) {
    const int32_t absent = draw - last - 1;
    if (absent <= record) return;
    record = absent;
    record_first = last + 1;
  }
  /// Draws since the last occurrence when there are so many; all of them when there was none.
  int32_t delay(int32_t draws) const { return draws - last - 1; }
};

}  // namespace vestara
