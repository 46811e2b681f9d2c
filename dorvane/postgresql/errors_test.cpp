#include "dorvane/postgresql/errors.h"

#include <gtest/gtest.h>

namespace dorvane::postgresql {
namespace {

TEST(PostgresqlErrors, EveryStateHasItsMeaning) {
  using enum Refusal;
  const struct {
    const char* state;
    Refusal refusal;
  } rows[] = {{"42P01", missing},     // no such table
              {"42703", missing},     // no such column
              {"3F000", missing},     // no such schema
              {"42501", permission},  // a privilege
              {"25006", permission},  // a transaction that reads only
              {"28000", permission},  // the user
              {"28P01", permission},  // the password
              {"55P03", busy},        // a lock that was waited for too long
              {"40001", busy},        // two changes that exclude each other
              {"40P01", busy},        // a deadlock
              {"57014", too_long},    // the statement's time is over
              {"53100", full},        // the disk
              {"53200", full},        // the memory
              {"08000", connection}, {"08006", connection}, {"57P01", connection},  // the server goes in order
              {"57P02", connection},                                                // the server went
              {"57P03", connection},                                                // the server is not ready
              {"23505", statement},                                                 // a duplicate key
              {"42601", statement},                                                 // the grammar
              {"42883", statement},                                                 // no such function
              {"22003", statement},                                                 // out of range
              {"25P02", statement},                                                 // in a transaction that failed
              {"53300", statement},  {"55000", statement},  {"57000", statement},  {"4", statement}, {"", statement}};
  for (const auto& row : rows) EXPECT_EQ(refusal_of(row.state), row.refusal) << row.state;
}

}  // namespace
}  // namespace dorvane::postgresql
