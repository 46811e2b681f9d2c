#include "dorvane/failure_note.h"

#include <new>

namespace dorvane {

using automation::RunTimeError;

FailureNote::FailureNote()
    // The standard library has no words for its shortage.
    : shortage_(std::make_shared<const RunTimeError>(automation::out_of_memory("there is not enough memory"))) {}

void FailureNote::note(const RunTimeError& error) noexcept {
  try {
    error_ = std::make_shared<const RunTimeError>(error);
  } catch (const std::bad_alloc&) {
    note_shortage();
  }
}

void FailureNote::note_unforeseen(const std::exception& error) noexcept {
  try {
    note(automation::failure(automation::FailureKind::unspecified, error.what()));
  } catch (const std::bad_alloc&) {
    note_shortage();
  }
}

}  // namespace dorvane
