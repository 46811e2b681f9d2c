#pragma once

#include <exception>
#include <memory>
#include <string>

#include "automation/error.h"

namespace dorvane {

/// Why the last failing call of a connector failed. Record sets note their failures here too and may outlive the
/// connector. To note a failure raises nothing: where there is no memory for it, the shortage itself is noted.
class FailureNote {
 public:
  FailureNote();

  void note(const automation::RunTimeError& error) noexcept;
  void note_shortage() noexcept { error_ = shortage_; }
  /// Notes an error that is no RunTimeError.
  void note_unforeseen(const std::exception& error) noexcept;
  void clear() noexcept { error_ = nullptr; }

  /// Null when nothing failed.
  const std::shared_ptr<const automation::RunTimeError>& error() const { return error_; }
  std::string text() const { return error_ ? error_->description() : std::string(); }

 private:
  std::shared_ptr<const automation::RunTimeError> error_;
  std::shared_ptr<const automation::RunTimeError> shortage_;  ///< made while there is memory
};

}  // namespace dorvane
