#pragma once

#include "automation/member.h"
#include "automation/object.h"
#include "automation/ref.h"
#include "vestara/foundation/connector.h"

namespace vestara {

/// Any object with a connector's members (a script's class, another vendor's connector), seen as a connector. What the
/// object raises, the calls raise. Record sets that it hands out are seen as record sets in the same way, and go back
/// to the host as the very objects it gave. Nothing for an object that knows no ConnectionState: it is of another type.
automation::Ref<DbConnector> late_bound_connector(const automation::Ref<automation::Object>& object);

/// A host's record set with the classic members: EOF, BOF, Fields(name).Value, MoveFirst, MoveNext, Move, RecordCount.
/// Values are asked for row by row, through `Fields`.
automation::Ref<RecordSet> late_bound_recordset(const automation::Ref<automation::Object>& object);

}  // namespace vestara

template <>
struct automation::Adapter<vestara::DbConnector> {
  static Ref<vestara::DbConnector> adapt(const Ref<Object>& object) { return vestara::late_bound_connector(object); }
};
