#pragma once  // installed

#include <cstdint>
#include <vector>

#include "automation/export.h"
#include "automation/object.h"
#include "automation/variant.h"

namespace automation {

/// An ordered collection without keys, as hosts walk it: Count, and Item from 1.
class AUTOMATION_API Collection final : public Object {
 public:
  static constexpr std::string_view contract_name = "Collection";
  static const ClassDescription& surface();
  const ClassDescription& description() const override { return surface(); }

  void add(Variant item) { items_.push_back(std::move(item)); }
  int32_t Count() const { return static_cast<int32_t>(items_.size()); }
  /// Counted from 1. Error 9 outside.
  Variant Item(int32_t index) const;

 private:
  std::vector<Variant> items_;
};

}  // namespace automation
