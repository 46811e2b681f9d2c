#pragma once  // installed

#include <cstddef>
#include <type_traits>
#include <utility>

namespace automation {

/// A counted reference to an Object; empty means "nothing".
template <class T>
class Ref {
 public:
  Ref() = default;
  Ref(std::nullptr_t) {}
  /// Shares `object`: its count goes up by one.
  explicit Ref(T* object) : object_(object) {
    if (object_) object_->retain();
  }
  Ref(const Ref& other) : Ref(other.object_) {}
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> Ref(const Ref<U>& other) : Ref(static_cast<T*>(other.get())) {}
  template <class U>
  requires std::is_convertible_v<U*, T*> Ref(Ref<U>&& other)
  noexcept : object_(other.detach()) {}
  // The analyzer does not follow the count.
  ~Ref() {
    if (object_) object_->release();  // NOLINT(clang-analyzer-cplusplus.NewDelete)
  }

  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  /// Takes over a count that the caller already holds.
  static Ref adopt(T* object) {
    Ref result;
    result.object_ = object;
    return result;
  }

  T* get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }  // NOLINT(clang-analyzer-cplusplus.NewDelete)
  explicit operator bool() const { return object_ != nullptr; }
  bool operator==(const Ref& other) const = default;

  /// Gives the count away: the caller must release the object.
  T* detach() { return std::exchange(object_, nullptr); }

 private:
  T* object_ = nullptr;
};

/// Creates an object that is owned by the returned reference.
template <class T, class... Arguments>
Ref<T> make(Arguments&&... arguments) {
  return Ref<T>::adopt(new T(std::forward<Arguments>(arguments)...));
}

/// The same object seen as a `T`; nothing when it is none.
template <class T, class U>
Ref<T> cast(const Ref<U>& object) {
  return Ref<T>(dynamic_cast<T*>(object.get()));
}

}  // namespace automation
