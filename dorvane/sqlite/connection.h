#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dorvane/connection.h"
#include "dorvane/insert_values.h"
#include "dorvane/schema.h"
#include "dorvane/sqlite/archive_file.h"
#include "dorvane/sqlite/draw_indexes.h"
#include "dorvane/sqlite/handles.h"
#include "dorvane/sqlite/insert_cache.h"
#include "dorvane/sqlite/open_rows.h"
#include "dorvane/sqlite/session.h"
#include "dorvane/statement_guard.h"
#include "dorvane/transaction_state.h"

namespace dorvane::sqlite {

/// The embedded database. Options of the URL: mode, durability, timeout, statement_timeout (see DbConnector).
class SqliteConnection final : public Connection {
 public:
  explicit SqliteConnection(const Url& url);
  ~SqliteConnection() override;

  automation::Ref<records::StaticRecordSet> query(std::string_view statement) override;
  void execute(std::string_view statement) override;
  void insert(const vestara::NewRows& rows) override;
  int32_t max_id(std::string_view table, std::string_view column) override;
  void begin() override;
  void commit() override;
  void rollback() override;
  void create_schema() override;
  std::vector<vestara::SchemaGap> check_schema() override;
  std::vector<std::string> check_file() override;
  bool has_changes() const override { return transaction_.has_changes(); }
  std::optional<vestara::ChangeMark> change_mark() override;
  bool hand_over_draws(const vestara::TakeDraw& take) override;
  bool is_alive() const override { return true; }
  /// Closes nothing: to close a file would give up the journal and the locks of the other process.
  void leave() noexcept override {}

 private:
  void open();
  void count_a_change();
  void read_anew_if_changed();
  /// Runs a body that reads, and once more where the file was changed meanwhile (`frozen_`).
  template <class Body>
  auto steadily(Body&& body);
  automation::Ref<records::StaticRecordSet> started(std::string_view statement);
  /// A reading statement with an order for ties, or as given where the engine refuses that.
  Statement prepare_reading(std::string_view statement);
  /// Runs a body and notices when its failure lost the transaction.
  template <class Body>
  void noticing_loss(Body&& body);

  /// Runs a change of the host's within its time, and notes what became of the transaction.
  template <class Change>
  void change(bool alters_tables, Change&& body);
  void rebuild_indexes();
  void repair_before_read();
  SchemaFacts schema_facts();

  StatementGuard guard_;
  FileSettings settings_;
  Session session_;
  /// The file is read without locks, because nothing can be made beside it; `stamp_` tells when it was changed.
  bool frozen_ = false;
  FileStamp stamp_;
  TransactionState transaction_;
  /// Grows whenever this connection may change what it reads; no two connections of the process have the same.
  uint64_t own_changes_ = 0;
  DrawIndexes indexes_{session_};
  InsertCache inserts_{session_};
  InsertValues values_;  ///< of the statement that is executed
  OpenRows open_rows_;
};

}  // namespace dorvane::sqlite
