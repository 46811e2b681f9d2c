#include "dorvane/mariadb/errors.h"

#include <gtest/gtest.h>

namespace dorvane::mariadb {
namespace {

TEST(MariadbErrors, EveryNumberHasItsMeaningAndSomeTakeTheTransaction) {
  using enum Refusal;
  const struct {
    unsigned code;
    Refusal refusal;
    bool takes_the_transaction;
  } rows[] = {{1146, missing, false},     // no such table
              {1051, missing, false},     // no such table to drop
              {1054, missing, false},     // no such column
              {1049, missing, false},     // no such database
              {1044, permission, false},  // a database
              {1045, permission, false},  // the user
              {1142, permission, false},  // a table
              {1143, permission, false},  // a column
              {1227, permission, false},  // a privilege
              {1290, permission, false},  // the server's options
              {1792, permission, false},  // a transaction that reads only
              {1836, permission, false},  // a server that is read only
              {1205, busy, false},        // a lock that was waited for too long
              {1213, busy, true},         // a deadlock
              {1969, too_long, false},    // the statement's time is over
              {1317, too_long, false},    // the statement was ended
              {1021, full, false},        // the disk
              {1114, full, false},        // the table
              {1053, connection, true},   // the server goes
              {1077, connection, true},   // the server went in order
              {1927, connection, true},   // the session was ended
              {1040, connection, true},   // too many sessions
              {2000, connection, true},   // the client's first number
              {2002, connection, true},   // no socket
              {2006, connection, true},   // the server has gone away
              {2013, connection, true},   // lost during the statement
              {1999, statement, false},   // below the client's first number
              {1062, statement, false},   // a duplicate key
              {1064, statement, false},   // the grammar
              {1264, statement, false},   // out of range
              {0, statement, false}};
  for (const auto& row : rows) {
    EXPECT_EQ(refusal_of(row.code), row.refusal) << row.code;
    EXPECT_EQ(took_the_transaction(row.code), row.takes_the_transaction) << row.code;
  }
}

}  // namespace
}  // namespace dorvane::mariadb
