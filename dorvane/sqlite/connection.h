#pragma once

#include <cstdint>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dorvane/connection.h"
#include "dorvane/home_process.h"
#include "dorvane/insert_values.h"
#include "dorvane/schema.h"
#include "dorvane/sqlite/archive_file.h"
#include "dorvane/sqlite/handles.h"
#include "dorvane/sqlite/statement_clock.h"
#include "dorvane/statement_guard.h"
#include "dorvane/transaction_state.h"

namespace dorvane {
class StaticRecordSet;
}

namespace dorvane::sqlite {

/// The embedded database. Options of the URL: mode, durability, timeout, statement_timeout (see DbConnector).
class SqliteConnection final : public Connection {
 public:
  explicit SqliteConnection(const Url& url);
  ~SqliteConnection() override;

  automation::Ref<StaticRecordSet> query(std::string_view statement) override;
  void execute(std::string_view statement) override;
  void insert(const vestara::NewRows& rows) override;
  int32_t max_id(std::string_view table, std::string_view column) override;
  void begin() override;
  void commit() override;
  void rollback() override;
  void create_schema() override;
  std::vector<std::string> check_schema() override;
  std::vector<std::string> check_file() override;
  bool has_changes() const override { return transaction_.has_changes(); }
  bool is_alive() const override { return true; }
  /// Nothing is closed: closing a file would give its journal and its locks up in the other process's name.
  void leave() noexcept override {}

 private:
  /// What the statement being prepared may do.
  enum class Permission : uint8_t { read, change, anything };

  static int authorize(void* self, int action, const char*, const char* second, const char*, const char*);
  /// Gives a statement its permission while it is prepared and stepped, which can prepare further ones.
  class Permitting;

  static int tick(void* self);

  void open();
  void attach(Database database);
  void read_anew_if_changed();
  /// Runs a body that reads, again where the file was changed while nothing kept changes away.
  template <class Body>
  auto steadily(Body&& body);
  automation::Ref<StaticRecordSet> started(std::string_view statement);
  /// Nothing of the engine's that a statement could leave the archive by.
  void close_side_doors();
  Statement prepare(std::string_view statement, Permission permission);
  /// A reading statement with an order for ties, or as given where the engine refuses that.
  Statement prepare_reading(std::string_view statement);
  /// Steps a statement to its end.
  void run(std::string_view statement, Permission permission);
  /// Runs statements of our own whose failure changes nothing.
  void attempt(const char* statements) noexcept;
  int64_t single_number(std::string_view statement);
  template <class Body>
  void atomically(Body&& body);
  /// Runs a body and notices when its failure lost the transaction.
  template <class Body>
  void noticing_loss(Body&& body);

  /// Runs a change of the host's within its time, and notes what became of the transaction.
  template <class Change>
  void change(bool alters_tables, Change&& body);
  /// Steps a prepared "INSERT … VALUES(?,…)" for every row; `head` is its text up to VALUES.
  void insert_rows(std::string_view head, size_t columns, std::span<const Literal> values);
  sqlite3_stmt* insert_statement(std::string_view head, size_t columns);

  bool owns_indexes();
  bool was_left_without_indexes();
  void empty_archive(std::string_view statement);
  void rebuild_indexes();
  void create_indexes();
  /// The first column of every row, where it is not Null.
  std::vector<std::string> column_of(std::string_view statement);
  SchemaFacts schema_facts();
  void repair_before_read();

  void complete_record_sets() noexcept;
  void forget(const StaticRecordSet* rows);

  Database database_;
  StatementGuard guard_;
  FileSettings settings_;
  /// Rows are fetched later than their statement is prepared, and reading is what that takes.
  Permission permission_ = Permission::read;
  std::set<std::string, std::less<>> refused_functions_;
  HomeProcess home_;
  StatementClock* running_ = nullptr;  ///< of the statement that the engine is working on
  /// The file is read without locks, because nothing can be made beside it; `stamp_` tells when it was changed.
  bool frozen_ = false;
  FileStamp stamp_;
  TransactionState transaction_;
  /// The draw indexes were dropped with the rows and are owed to the next reader.
  bool indexes_owed_ = false;
  bool indexes_owed_at_begin_ = false;
  std::vector<StaticRecordSet*> unfinished_;

  // The last recognised INSERT, kept prepared.
  std::string insert_head_;
  size_t insert_columns_ = 0;
  Statement insert_;
  InsertValues values_;
};

class SqliteConnection::Permitting {
 public:
  Permitting(SqliteConnection& connection, Permission permission)
      : connection_(connection), before_(std::exchange(connection.permission_, permission)) {}
  Permitting(const Permitting&) = delete;
  Permitting& operator=(const Permitting&) = delete;
  ~Permitting() { connection_.permission_ = before_; }

 private:
  SqliteConnection& connection_;
  Permission before_;
};

}  // namespace dorvane::sqlite
