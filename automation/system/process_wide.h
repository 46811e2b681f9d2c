#pragma once

#include <mutex>
#include <utility>

namespace automation {

/// A value that all threads of the process share. No thread sees it half changed: readers get a copy, and whatever they
/// call with it runs outside the lock.
template <class Value>
class ProcessWide {
 public:
  explicit ProcessWide(Value value = {}) : value_(std::move(value)) {}

  Value get() const {
    const std::lock_guard lock(mutex_);
    return value_;
  }
  /// Replaces the value; returns the one before.
  Value exchange(Value next) {
    const std::lock_guard lock(mutex_);
    std::swap(value_, next);
    return next;
  }
  /// Calls `change` with the value, under the lock.
  template <class Change>
  void update(Change change) {
    const std::lock_guard lock(mutex_);
    change(value_);
  }

 private:
  mutable std::mutex mutex_;
  Value value_;
};

}  // namespace automation
