#include "records/fields.h"

#include <utility>

#include "automation/coercion.h"
#include "automation/error.h"

namespace records {

using automation::Ref;
using automation::Variant;

Field::Field(Ref<RecordSet> rows, Column column) : rows_(std::move(rows)), column_(column) {}
std::string Field::Name() const { return rows_->column_name(column_); }
Variant Field::Value() const { return rows_->value(column_); }

Fields::Fields(Ref<RecordSet> rows) : rows_(std::move(rows)) {}
int32_t Fields::Count() const { return rows_->column_count(); }

Ref<Field> Fields::Item(const Variant& index) const {
  if (index.is_object()) return Item(automation::to_plain(index));
  if (const auto* name = index.get_if<std::string>()) return automation::make<Field>(rows_, rows_->column(*name));
  const Column column{automation::to_long(index)};
  if (column.index < 0 || column.index >= Count()) throw automation::item_not_found();
  return automation::make<Field>(rows_, column);
}

}  // namespace records
