#pragma once

#include <libpq-fe.h>

#include <memory>

namespace dorvane::postgresql {

struct CloseSession {
  void operator()(PGconn* session) const { PQfinish(session); }
};
struct ClearResult {
  void operator()(PGresult* result) const { PQclear(result); }
};
using Session = std::unique_ptr<PGconn, CloseSession>;
using Result = std::unique_ptr<PGresult, ClearResult>;

}  // namespace dorvane::postgresql
