#pragma once

#include <span>
#include <vector>

#include "automation/com/system/platform.h"
#include "automation/object.h"
#include "automation/variant.h"

namespace automation::com {

/// How an object goes to a host that may replace it: as a variable of any type, or as one that holds objects only.
enum class Reference { variant, object };

/// The arguments of a call of a host's object, last first. Objects go by reference, so that the host can hand others
/// back; all other values go by value, because compiled hosts take references to exact types only.
class HostArguments {
 public:
  HostArguments(std::span<const Variant> arguments, InvokeKind kind, Reference reference);
  HostArguments(const HostArguments&) = delete;
  HostArguments& operator=(const HostArguments&) = delete;
  ~HostArguments();

  DISPPARAMS& parameters() { return parameters_; }
  bool has_references() const { return references_; }
  /// The objects as the host left them.
  void give_back(std::span<Variant> arguments) const;

 private:
  std::vector<VARIANT> values_;  ///< what is owned
  std::vector<VARIANT> handed_;  ///< what the host sees, in its order
  DISPID new_value_ = DISPID_PROPERTYPUT;
  DISPPARAMS parameters_{};
  bool references_ = false;
};

}  // namespace automation::com
