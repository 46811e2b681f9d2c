#pragma once

#include <string_view>

#include "automation/error.h"
#include "automation/ref.h"
#include "vestara/foundation/connector.h"

namespace vestara {

/// The rows of a reading statement, or nothing when the connector refused it. Error 91 when the connector reports
/// success and hands nothing over. Whoever walked the rows closes them through the connector.
inline automation::Ref<RecordSet> open_rows(DbConnector& connector, std::string_view statement) {
  automation::Ref<RecordSet> rows;
  if (!connector.OpenRecordset(rows, statement)) return {};
  if (!rows) throw automation::object_not_set();
  return rows;
}

}  // namespace vestara
