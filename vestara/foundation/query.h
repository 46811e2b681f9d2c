#pragma once

#include <string_view>

#include "automation/error.h"
#include "automation/ref.h"
#include "vestara/foundation/connector.h"

namespace vestara {

/// What a typed function raises when the connector refused its statement: a failure of kind database that names `what`
/// was asked for. The connector may say why; that of dorvane does in LastError.
automation::RunTimeError statement_refused(std::string_view what);

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
/// the statement. The host may take the connector away meanwhile: it stays until the end.
template <class Walk>
bool walk_rows(DbConnector& connector, std::string_view statement, Walk walk) {
  const automation::Ref<DbConnector> held(&connector);
  automation::Ref<RecordSet> rows = open_rows(connector, statement);
  if (!rows) return false;
  walk(*rows);
  connector.CloseRecordset(rows);
  return true;
}

/// The answer of a load that fills its last argument and gives False when its statement was refused: whole, or the
/// error `statement_refused`.
template <class Answer, class Load>
Answer whole(std::string_view what, Answer answer, Load load) {
  if (!load(answer)) throw statement_refused(what);
  return answer;
}

}  // namespace vestara
