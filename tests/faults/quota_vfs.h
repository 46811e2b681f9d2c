#pragma once

#include <cstdint>

namespace faults {

/// A file system for the embedded engine that is full after a number of written bytes. While one exists it is the
/// default for newly opened archives; everything else is the real file system's.
class QuotaFileSystem {
 public:
  explicit QuotaFileSystem(int64_t bytes);
  ~QuotaFileSystem();
  QuotaFileSystem(const QuotaFileSystem&) = delete;
  QuotaFileSystem& operator=(const QuotaFileSystem&) = delete;

  /// A new allowance, counted from now.
  static void allow(int64_t bytes);
  /// True when a write was refused since the last `allow`.
  static bool refused();
};

}  // namespace faults
