#include "automation/member.h"
#include "automation/registry.h"
#include "dorvane/connector.h"
#include "records/fields.h"
#include "records/static_recordset.h"

namespace dorvane {
namespace connector_members {

using automation::parameter;
using row = automation::Rows<DbConnector>;

constexpr auto rows = automation::member_rows(
    row::read_only<&DbConnector::ConnectionState>(1, "ConnectionState", "1 when the connection is open."),
    row::method<&DbConnector::OpenRecordset>(2, "OpenRecordset", "Runs a reading statement; the rows come back in rs.",
                                             parameter("rs"), parameter("sql")),
    row::method<&DbConnector::CloseRecordset>(3, "CloseRecordset", "Closes a record set and empties the variable.",
                                              parameter("rs")),
    row::method<&DbConnector::ExecuteSql>(4, "ExecuteSql", "Runs one INSERT, UPDATE or DELETE.", parameter("sql")),
    row::method<&DbConnector::GetMaxId>(5, "GetMaxId", "The largest value of a column, 0 for an empty table.",
                                        parameter("table"), parameter("column")),
    row::method<&DbConnector::GetRecordset>(6, "GetRecordset", "The rows of a reading statement, or nothing.",
                                            parameter("sql")),
    row::method<&DbConnector::BeginTrans>(7, "BeginTrans",
                                          "Starts a transaction; raises when one with changes is open."),
    row::method<&DbConnector::CommitTrans>(8, "CommitTrans", "Keeps the transaction; raises when it cannot be kept."),
    row::method<&DbConnector::RollbackTrans>(9, "RollbackTrans", "Takes the transaction back."),
    row::method<&DbConnector::Open>(10, "Open", "Opens an archive by URL and changes nothing in it.", parameter("url")),
    row::method<&DbConnector::Close>(11, "Close",
                                     "Closes; changes of an open transaction are taken back, which LastError says."),
    row::read_only<&DbConnector::LastError>(12, "LastError", "Why the last failing call failed."),
    row::method<&DbConnector::CreateSchema>(13, "CreateSchema",
                                            "Creates the tables, indexes and wheels that are missing."),
    row::method<&DbConnector::CheckSchema>(14, "CheckSchema", "A line for everything that the archive lacks."));

const automation::ClassRegistrar<DbConnector> connector;
const automation::HandedOut<records::StaticRecordSet> record_set;
const automation::HandedOut<records::Fields> fields;
const automation::HandedOut<records::Field> field;

}  // namespace connector_members

const automation::ClassDescription& DbConnector::surface() {
  static constexpr automation::ClassDescription surface{
      .library = "Dorvane",
      .name = contract_name,
      .interface_name = "_DbConnector",
      .help = "One connection to an archive, chosen by URL.",
      .members = connector_members::rows,
  };
  return surface;
}

}  // namespace dorvane
