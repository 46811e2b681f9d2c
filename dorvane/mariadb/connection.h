#pragma once

#include <string>
#include <string_view>

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

 private:
  void run(std::string_view statement) override;
  ServerRows rows(std::string_view statement) override;
  bool transaction_is_whole() const override { return alive_ && !transaction_taken_; }

  std::string translate(std::string_view statement) const override;
  std::string translate_reading(std::string_view statement) const override;
  void require_plain(std::string_view statement) const override;
  std::span<const Creation> table_creations() const override;
  std::span<const Creation> index_creations() const override;
  std::string_view column_facts() const override;
  std::string_view index_facts() const override;
  std::string wheels_insertion() const override;
  bool tables_are_transactional() const override { return false; }
  void define(std::string_view statement) override;

  void before_keeping_refilled() override;
  void after_refilling() override;

  /// The statement's rows, or nothing when it has none.
  Result answer(std::string_view statement);
  void prefer(std::string_view setting);

  Session session_;
  bool alive_ = true;
  bool transaction_taken_ = false;
};

}  // namespace dorvane::mariadb
