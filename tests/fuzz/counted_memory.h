#pragma once

#include <cstddef>

// Counts what the program takes through operator new.

namespace counted_memory {

/// Forgets the peak: from here on it counts what is taken on top of what is held now.
void start();
/// The most that was held at once since `start`.
size_t peak();

}  // namespace counted_memory
