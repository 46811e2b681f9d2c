#pragma once

#include <string>

#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "vestara/foundation/recordset.h"

namespace dorvane {

/// One column of a record set, as hosts hold it: its value is that of the row the cursor stands on.
class Field final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "Field";
  Field(automation::Ref<vestara::RecordSet> rows, vestara::Column column);
  const automation::ClassDescription& description() const override;

  std::string Name() const;
  /// Error 3021 when the cursor stands on no row.
  automation::Variant Value() const;

 private:
  automation::Ref<vestara::RecordSet> rows_;
  vestara::Column column_;
};

/// The columns of a record set, counted from 0.
class Fields final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "Fields";
  explicit Fields(automation::Ref<vestara::RecordSet> rows);
  const automation::ClassDescription& description() const override;

  int32_t Count() const;
  /// By name or by place. Error 3265 when there is none.
  automation::Ref<Field> Item(const automation::Variant& index) const;

 private:
  automation::Ref<vestara::RecordSet> rows_;
};

}  // namespace dorvane
