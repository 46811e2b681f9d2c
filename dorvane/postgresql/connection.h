#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dorvane/postgresql/handles.h"
#include "dorvane/server_address.h"
#include "dorvane/server_connection.h"

namespace dorvane::postgresql {

/// A PostgreSQL server, or one that speaks its protocol.
class PostgresqlConnection final : public ServerConnection {
 public:
  explicit PostgresqlConnection(const ServerSettings& settings);
  ~PostgresqlConnection() override = default;

  bool is_alive() const override;

 private:
  void run(std::string_view statement) override;
  ServerRows rows(std::string_view statement) override;
  bool transaction_is_whole() const override;

  bool tables_are_transactional() const override { return true; }

  void take_schema_turn() override;
  void after_emptying() override;
  void after_refilling() override;
  std::vector<std::string> key_repairs() override;

  Result answer(std::string_view statement);

  Session session_;
};

}  // namespace dorvane::postgresql
