#pragma once  // for hosts

#include "vestara/draws/draw_range.h"
#include "vestara/foundation/export.h"
#include "vestara/foundation/failure.h"
#include "vestara/keeping/archive.h"

namespace vestara {

/// A row holds a value that its column cannot hold.
class UnfitRow : public Failure {
 public:
  using Failure::Failure;
};

/// Makes an archive without draws hold the wheels of another one and its draws of a range, under new keys in the order
/// of the old ones: for members of the library that ask for everything since a day. Both have their tables. One
/// transaction. Failure (database), UnfitRow for a value that does not fit.
VESTARA_API void copy_excerpt(const Archive& from, const Archive& to, const DrawRange& range);

}  // namespace vestara
