#pragma once  // installed

#include <type_traits>
#include <utility>

namespace automation {

/// A parameter that a member may write back: bound to the caller's variable, or to a value of its own when the
/// caller gave none (`LoadLottoEstr("5,12")`, `LoadLottoEstr("5,12", 2, "BA", from, to, all_draws)`).
template <class T>
class InOut {
 public:
  InOut(T& variable) : target_(&variable) {}
  InOut(const T& value) : own_(value), target_(&own_) {}
  InOut(T&& value = T{}) : own_(std::move(value)), target_(&own_) {}
  template <class U>
  requires(!std::is_same_v<std::remove_cvref_t<U>, T> && std::is_constructible_v<T, U>) InOut(U&& value)
      : own_(std::forward<U>(value)), target_(&own_) {}
  InOut(const InOut&) = delete;
  InOut& operator=(const InOut&) = delete;

  T& operator*() const { return *target_; }
  T* operator->() const { return target_; }

 private:
  T own_{};
  T* target_;
};

}  // namespace automation
