#pragma once

#include <string>

#include "automation/export.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "automation/variant.h"
#include "records/recordset.h"

namespace records {

/// One column of a record set, as hosts hold it: its value is that of the row the cursor stands on.
class AUTOMATION_API Field final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "Field";
  Field(automation::Ref<RecordSet> rows, Column column);
  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  std::string Name() const;
  /// Error 3021 when the cursor stands on no row.
  automation::Variant Value() const;

 private:
  automation::Ref<RecordSet> rows_;
  Column column_;
};

/// The columns of a record set, counted from 0.
class AUTOMATION_API Fields final : public automation::Object {
 public:
  static constexpr std::string_view contract_name = "Fields";
  explicit Fields(automation::Ref<RecordSet> rows);
  static const automation::ClassDescription& surface();
  const automation::ClassDescription& description() const override { return surface(); }

  int32_t Count() const;
  /// By name or by place. Error 3265 when there is none.
  automation::Ref<Field> Item(const automation::Variant& index) const;

 private:
  automation::Ref<RecordSet> rows_;
};

}  // namespace records
