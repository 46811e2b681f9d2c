#pragma once

#include <cstdint>

#include "vestara/draws/draw_sequence.h"
#include "vestara/foundation/export.h"

// What chance alone does. Each drawing takes five of ninety numbers, whatever was drawn before.

namespace vestara::study {

/// The chance that one drawing holds at least `hits` (0 to 5) of `numbers` (0 to 90) given numbers. Source: the tail
/// of the hypergeometric distribution, from exact counts.
VESTARA_API double hit_chance(int32_t numbers, int32_t hits);

/// The chance that what has `chance` on one wheel happens on one of `wheels` at least, also for a tiny chance.
VESTARA_API double chance_on_wheels(double chance, int32_t wheels);

/// A chance and its complement, each exact also where it is tiny.
struct Chance {
  double of = 0;
  double against = 1;
};
/// `hit_chance` with its complement.
VESTARA_API Chance chance_of_hits(int32_t numbers, int32_t hits);

/// How often something is expected to occur in draws, and how far that varies.
struct Expectation {
  int32_t draws = 0;
  double mean = 0;     ///< draws with it
  double missing = 0;  ///< draws without it: exact where it is expected in almost all
  double variance = 0;
};
/// Of what has `chance` on one wheel.
Expectation expectation(const DrawSequence& sequence, const Chance& chance);

}  // namespace vestara::study
