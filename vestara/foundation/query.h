#pragma once

#include <string_view>

#include "automation/error.h"
#include "automation/ref.h"
#include "vestara/foundation/connector.h"

namespace vestara {

/// The connector that a member needs. Error 91 when none was given.
inline DbConnector& required(const automation::Ref<DbConnector>& connector) {
  if (!connector) throw automation::object_not_set();
  return *connector;
}

/// The rows of a reading statement, or nothing when the connector refused it. Error 91 when the connector reports
/// success and hands nothing over. Whoever keeps the rows closes them through the connector.
inline automation::Ref<RecordSet> open_rows(DbConnector& connector, std::string_view statement) {
  automation::Ref<RecordSet> rows;
  if (!connector.OpenRecordset(rows, statement)) return {};
  if (!rows) throw automation::object_not_set();
  return rows;
}

/// Hands the rows of a reading statement to `walk` and closes them through the connector; False when that refused
/// the statement. The host may take the connector away meanwhile: this one stays until the end.
template <class Walk>
bool walk_rows(const automation::Ref<DbConnector>& connector, std::string_view statement, Walk walk) {
  const automation::Ref<DbConnector> held(&required(connector));
  automation::Ref<RecordSet> rows = open_rows(*held, statement);
  if (!rows) return false;
  walk(*rows);
  held->CloseRecordset(rows);
  return true;
}

}  // namespace vestara
