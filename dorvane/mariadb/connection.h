#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dorvane/mariadb/handles.h"
#include "dorvane/server_address.h"
#include "dorvane/server_connection.h"

namespace dorvane::mariadb {

/// A MariaDB server, or one that speaks its protocol.
class MariadbConnection final : public ServerConnection {
 public:
  explicit MariadbConnection(const ServerSettings& settings);
  ~MariadbConnection() override = default;

  bool is_alive() const override { return alive_; }
  void leave() noexcept override;

 private:
  int64_t run(std::string_view statement) override;
  void start() override;
  ServerRows rows(std::string_view statement) override;
  bool transaction_is_whole() const override { return alive_ && !transaction_taken_; }

  bool tables_are_transactional() const override { return false; }
  void define(std::string_view statement) override;
  std::string wheels_insertion() const override;

  std::vector<std::string> damage_of(std::string_view table) override;
  void before_emptied_is_kept() override;
  void after_emptied_was_kept() override;

  /// The statement's rows, or nothing when it has none.
  Result answer(std::string_view statement);

  Session session_;
  bool alive_ = true;
  bool transaction_taken_ = false;
};

}  // namespace dorvane::mariadb
