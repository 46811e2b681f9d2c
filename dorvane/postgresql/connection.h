#pragma once

#include <cstdint>
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
  void leave() noexcept override;

 private:
  int64_t run(std::string_view statement) override;
  void keep() override;
  ServerRows rows(std::string_view statement) override;
  ServerRows reading_rows(std::string_view statement, OnRefusal on_refusal) override;
  bool transaction_is_whole() const override;

  bool tables_are_transactional() const override { return true; }

  void take_schema_lock() override;
  void on_emptied() override;
  void after_emptied_was_kept() override;
  std::vector<std::string> key_repairs() override;

  Result answer(std::string_view statement);
  /// Raises what the result says went wrong.
  void require_answer(const PGresult* result, std::string_view statement);
  static ServerRows rows_of(Result result, std::string_view statement);
  void fix_search_path();
  /// Where a table's keys come from, as a name for statements; "" where they come from nowhere.
  std::string sequence_of(std::string_view table, std::string_view column);

  Session session_;
};

}  // namespace dorvane::postgresql
