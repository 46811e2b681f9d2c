#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dorvane/connection.h"
#include "dorvane/dialect.h"
#include "dorvane/schema.h"
#include "dorvane/statement_guard.h"
#include "dorvane/transaction_state.h"
#include "records/static_recordset.h"

namespace dorvane {

/// The rows of a statement as a server's client hands them over, complete.
struct ServerRows {
  std::vector<records::ColumnHeader> headers;
  std::unique_ptr<records::RowSource> source;
};

/// What is the same on every server: the statement guard, transactions and what loses them, one writer at a time, the
/// schema.
///
/// Outside a transaction the session itself is read only, so that no reading statement can write whatever its text;
/// a change gets a transaction of its own. A lost connection is never made anew.
class ServerConnection : public Connection {
 public:
  automation::Ref<records::StaticRecordSet> query(std::string_view statement) final;
  void execute(std::string_view statement) final;
  void insert(const vestara::NewRows& rows) final;
  int32_t max_id(std::string_view table, std::string_view column) final;
  void begin() final;
  void commit() final;
  void rollback() final;
  bool has_changes() const final { return transaction_.has_changes(); }
  void create_schema() final;
  std::vector<vestara::SchemaGap> check_schema() final;
  std::vector<std::string> check_file() final;

 protected:
  enum class Access : uint8_t { read_write, read_only };
  ServerConnection(const Dialect& dialect, Access access)
      : dialect_(dialect), guard_(dialect.prohibitions), access_(access) {}

  /// Names, in lower case, of functions that this server has beyond those that the engine always has; they are refused.
  void refuse_functions(const std::vector<std::string>& names) { guard_.refuse_functions(names); }

  /// Runs one statement that needs no answer; returns how many rows it changed, or could have. Raises ServerError.
  virtual int64_t run(std::string_view statement) = 0;
  /// Runs one statement with an answer. Raises ServerError.
  virtual ServerRows rows(std::string_view statement) = 0;
  /// What a refused reading statement does to the open transaction, on an engine where it does anything.
  enum class OnRefusal : uint8_t { lose_transaction, keep_transaction };
  /// The same for a host's statement, which can then change nothing whatever its text.
  virtual ServerRows reading_rows(std::string_view statement, OnRefusal) { return rows(statement); }
  /// Begins, at the server, a transaction that may write.
  virtual void start() { run("START TRANSACTION READ WRITE"); }
  /// Commits it at the server. Raises when the server rolled it back instead.
  virtual void keep() { run("COMMIT"); }
  /// True while the server holds the transaction that was begun; false once an error took it.
  virtual bool transaction_is_whole() const = 0;

  /// True when CREATE, ALTER and DROP can be taken back; otherwise they run by `define` alone.
  virtual bool tables_are_transactional() const = 0;
  /// Runs such a statement while no transaction is open.
  virtual void define(std::string_view statement);

  /// The statement that adds missing wheels. Where `take_schema_lock` locks nothing, it passes over wheels that another
  /// program added meanwhile.
  virtual std::string wheels_insertion() const;

  // Moments at which an engine may do more. Each does nothing where it is not overridden.
  /// Called by `create_schema` before it looks what is missing, inside its transaction where the engine has one for
  /// tables. PostgreSQL takes a lock there, so that two programs do not make the schema at once.
  virtual void take_schema_lock() {}
  /// Called by `execute` right after a statement that deleted all draws, inside its transaction. PostgreSQL restarts
  /// the sequence of their keys, which a rollback takes back.
  virtual void on_emptied() {}
  /// Called before a transaction that deleted all draws is committed, inside it. MariaDB gives the new rows low keys
  /// when the old ones were high.
  virtual void before_emptied_is_kept() {}
  /// Called once a change that deleted all draws is committed, outside every transaction. A failure is ignored: the
  /// change is kept already. PostgreSQL cleans the table; MariaDB sets the next key above the largest.
  virtual void after_emptied_was_kept() {}
  /// Called by `check_file` for each table of the archive that is there, outside every transaction where tables are not
  /// transactional: a line for everything that is wrong in it. MariaDB has its tables checked.
  virtual std::vector<std::string> damage_of(std::string_view) { return {}; }
  /// Called by `create_schema`: the statements that raise the next keys above those that another program chose.
  virtual std::vector<std::string> key_repairs() { return {}; }

  /// Makes a setting that speeds up the library's statements. A server that does not know it is left as it is.
  void prefer(std::string_view setting);

  /// The first column of the first row, 0 when there is none.
  int32_t single_number(std::string_view statement);
  static int32_t first_number(ServerRows answer);
  /// The first column of every row.
  std::vector<std::string> column_of(std::string_view statement);

 private:
  void require_usable() const;
  void require_writable() const;
  const Syntax& syntax() const { return dialect_.prohibitions.syntax; }
  ServerRows rows_in_order(std::string_view statement);
  template <class Body>
  auto noticing_loss(Body&& body);
  template <class Body>
  void atomically(Body&& body);
  void take_write_lock();
  /// Creates the tables and indexes that are missing.
  void create_missing();
  SchemaFacts schema_facts();
  void quietly_roll_back() noexcept;
  void finish_emptied() noexcept;
  void repair_keys();
  void make_schema();

  const Dialect& dialect_;
  StatementGuard guard_;
  Access access_;
  TransactionState transaction_;
  bool emptied_ = false;  ///< the draws were all deleted, in the open transaction or just now
};

}  // namespace dorvane
