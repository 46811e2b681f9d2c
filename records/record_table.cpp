#include "records/record_table.h"

#include "automation/error.h"

namespace records {

void RecordTable::add(std::string name, ColumnStore values) {
  if (!columns_.empty() && columns_.front().size() != values.size())
    throw automation::invalid_call("column '" + name + "' has " + std::to_string(values.size()) +
                                   " rows; the columns before it have " + std::to_string(columns_.front().size()));
  headers_.push_back({std::move(name)});
  columns_.push_back(std::move(values));
}

automation::Ref<RecordSet> RecordTable::take() {
  return automation::make<StaticRecordSet>(std::exchange(headers_, {}), std::exchange(columns_, {}));
}

}  // namespace records
