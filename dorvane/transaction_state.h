#pragma once

#include <cstdint>
#include <string>

#include "automation/error.h"

namespace dorvane {

/// Where a connection's transaction stands: none, open or lost. The connection begins and ends transactions at its
/// engine and notes here what it did. A transaction is lost when its engine rolled it back, or never began it. No
/// statement runs then until the next transaction call, so that no part of a change is stored alone.
class TransactionState {
 public:
  bool is_none() const { return at_ == At::none; }
  bool is_open() const { return at_ == At::open; }
  /// True while the open transaction has changed something, or could have.
  bool has_changes() const { return is_open() && changed_; }

  /// The engine has begun one.
  void opened() {
    at_ = At::open;
    changed_ = false;
  }
  void ended() { at_ = At::none; }
  void lost(const std::string& reason) {
    at_ = At::lost;
    reason_ = reason;
  }
  /// A statement changed something. Counts inside an open transaction only.
  void changed() { changed_ = true; }

  /// Raises RunTimeError with the reason when the transaction is lost.
  void require_not_lost() const;
  /// Raises RunTimeError when no transaction was begun.
  void require_begun() const;

  /// Runs a body. When it raises, `is_whole` tells whether the engine still holds the open transaction; it is lost
  /// otherwise.
  template <class Body, class IsWhole>
  auto around(Body&& body, IsWhole&& is_whole) {
    try {
      return body();
    } catch (const automation::RunTimeError& error) {
      if (is_open() && !is_whole()) lost(error.description());
      throw;
    }
  }

 private:
  enum class At : uint8_t { none, open, lost };

  At at_ = At::none;
  bool changed_ = false;
  std::string reason_;
};

}  // namespace dorvane
