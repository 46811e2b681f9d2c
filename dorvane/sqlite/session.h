#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dorvane/sqlite/archive_file.h"
#include "dorvane/sqlite/handles.h"
#include "dorvane/sqlite/statement_clock.h"

namespace dorvane::sqlite {

class DrawHandover;

/// What a statement may do while it is prepared and stepped.
enum class Permission : uint8_t { read, change, anything };

/// One open file of the engine: statements under a permission and a limit of time. Everything raises RunTimeError with
/// the engine's reason. It belongs to one connection and is used by one thread at a time.
class Session {
 public:
  Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Takes a file over, in place of the one before, and reads from it for the first time.
  void attach(Database database, const FileSettings& settings);

  sqlite3* database() const { return database_.get(); }
  bool is_inside_transaction() const { return sqlite3_get_autocommit(database_.get()) == 0; }

  /// One statement; error 5 for several, or none.
  Statement prepare(std::string_view statement, Permission permission);
  /// Steps a statement to its end.
  void run(std::string_view statement, Permission permission);
  /// Runs statements of our own whose failure changes nothing.
  void attempt(const char* statements) noexcept;
  /// The first column of the first row; 0 when there is none.
  int64_t single_number(std::string_view statement);
  /// The first column of every row, where it is not Null; within the time that a reader has.
  std::vector<std::string> column_of(std::string_view statement);

  /// Runs a body whose changes are kept together or not at all, inside the open transaction or one of its own.
  template <class Body>
  void atomically(Body&& body);

  /// The clock of the running statement, for whoever sets it; null while none runs.
  StatementClock*& running_clock() { return running_; }
  /// Where the handover of the running statement is to be put; null while none runs.
  DrawHandover*& draw_handover() { return handover_; }

  /// Gives statements a permission for as long as it lives: stepping one can prepare further ones.
  class Permitting {
   public:
    Permitting(Session& session, Permission permission)
        : session_(session), before_(std::exchange(session.permission_, permission)) {}
    Permitting(const Permitting&) = delete;
    Permitting& operator=(const Permitting&) = delete;
    ~Permitting() { session_.permission_ = before_; }

   private:
    Session& session_;
    Permission before_;
  };

 private:
  static int authorize(void* self, int action, const char*, const char* second, const char*, const char*);
  static int tick(void* self);
  /// Switches off everything by which a statement could reach anything but the archive.
  void close_side_doors();

  Database database_;
  /// Rows are fetched later than their statement is prepared, and reading is what that takes.
  Permission permission_ = Permission::read;
  std::set<std::string, std::less<>> refused_functions_;
  StatementClock* running_ = nullptr;
  DrawHandover* handover_ = nullptr;
  int reading_limit_ = 0;
};

template <class Body>
void Session::atomically(Body&& body) {
  // Outside a transaction the right to write comes first: one that begins by reading can be refused it later, at once
  // and for good, when another program wrote in between.
  const bool outermost = !is_inside_transaction();
  run(outermost ? "BEGIN IMMEDIATE" : "SAVEPOINT vestara", Permission::anything);
  try {
    body();
    run(outermost ? "COMMIT" : "RELEASE vestara", Permission::anything);
  } catch (...) {
    // Where the engine rolled back by itself there is nothing left to undo, and these do nothing.
    attempt(outermost ? "ROLLBACK" : "ROLLBACK TO vestara; RELEASE vestara");
    throw;
  }
}

/// The first column of the row that a statement stands on; "" for Null, and where there is no memory for the text.
std::string_view text_of(sqlite3_stmt* row);

}  // namespace dorvane::sqlite
