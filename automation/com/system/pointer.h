#pragma once

#include <utility>

#include "automation/com/system/platform.h"

namespace automation::com {

/// A counted reference to an interface of COM.
template <class Interface>
class Pointer {
 public:
  Pointer() = default;
  explicit Pointer(Interface* pointer) : pointer_(pointer) {
    if (pointer_) pointer_->AddRef();
  }
  Pointer(const Pointer& other) : Pointer(other.pointer_) {}
  Pointer(Pointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ~Pointer() {
    if (pointer_) pointer_->Release();
  }
  Pointer& operator=(Pointer other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }

  /// Takes over a count that the caller already holds.
  static Pointer adopt(Interface* pointer) {
    Pointer result;
    result.pointer_ = pointer;
    return result;
  }
  /// The interface of this type that `object` has; nothing when it has none.
  static Pointer query(IUnknown* object) {
    Pointer result;
    if (object) object->QueryInterface(__uuidof(Interface), result.out());
    return result;
  }

  Interface* get() const { return pointer_; }
  Interface* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }
  /// Where a call that hands out an interface puts it; the reference must be empty.
  Interface** put() { return &pointer_; }
  void** out() { return reinterpret_cast<void**>(&pointer_); }
  /// Gives the count away.
  Interface* detach() { return std::exchange(pointer_, nullptr); }

 private:
  Interface* pointer_ = nullptr;
};

}  // namespace automation::com
