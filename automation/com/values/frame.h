#pragma once

#include <array>
#include <span>
#include <string_view>

#include "automation/com/system/platform.h"
#include "automation/member.h"
#include "automation/variant.h"

namespace automation::com {

/// What the flags of a call ask for. Some hosts set both forms of assignment: then an object is assigned by reference.
InvokeKind kind_of(WORD flags, const DISPPARAMS& given);

inline bool assigns(InvokeKind kind) { return kind == InvokeKind::put || kind == InvokeKind::putref; }

/// The row that serves a call of this kind; null when there is none.
const Member* find_member(const ClassDescription& description, int32_t id, InvokeKind kind);

/// The arguments of one call, from the host's order (last first, named ones before the others) into that of `Object`.
class Frame {
 public:
  /// Errors 450 for too many, 448 for a name that no parameter has.
  Frame(const ClassDescription& description, int32_t id, InvokeKind kind, const DISPPARAMS& given);

  std::span<Variant> arguments() { return {arguments_.data(), count_}; }
  std::span<const std::string_view> names() const { return {names_.data(), named_}; }

  /// Stores what the member wrote back in the variables that the host passed by reference; those that it left alone
  /// are not touched.
  void give_back();

 private:
  VARIANT& given_at(size_t place) const { return given_.rgvarg[count_ - 1 - place]; }
  const Member& member() const;
  /// Which parameter the argument at a place is for.
  const Parameter* parameter_of(const Member& row, size_t place) const;

  const ClassDescription& description_;
  int32_t id_;
  InvokeKind kind_;
  const DISPPARAMS& given_;
  size_t count_;
  size_t named_ = 0;
  bool any_reference_ = false;
  std::array<Variant, most_parameters> arguments_;
  std::array<std::string_view, most_parameters> names_;
};

}  // namespace automation::com
