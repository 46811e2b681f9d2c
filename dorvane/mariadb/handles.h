#pragma once

#include <mysql.h>

#include <memory>

namespace dorvane::mariadb {

struct CloseSession {
  void operator()(MYSQL* session) const { mysql_close(session); }
};
struct FreeResult {
  void operator()(MYSQL_RES* result) const { mysql_free_result(result); }
};
using Session = std::unique_ptr<MYSQL, CloseSession>;
using Result = std::unique_ptr<MYSQL_RES, FreeResult>;

}  // namespace dorvane::mariadb
