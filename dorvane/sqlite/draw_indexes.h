#pragma once

#include <string_view>

#include "dorvane/sqlite/session.h"

namespace dorvane::sqlite {

/// The indexes of the draws in one file. To fill the table without them and build them once is twice as fast: they are
/// dropped when the draws are all deleted. From then on they are owed: they are made again before the next read, with
/// the commit, or with the end of the connection. A file without them gives the same answers, only slower.
class DrawIndexes {
 public:
  explicit DrawIndexes(Session& session) : session_(session) {}

  bool are_owed() const { return owed_; }

  /// Called once the file is open. The indexes are owed where another connection ended before it made them.
  void look();
  /// Runs the statement that deletes all draws; the indexes are dropped with them where they are the file's own.
  void empty_draws(std::string_view statement);
  /// Makes them all, and the statistics that plans come from.
  void create();
  /// The same as one change; they are owed no longer.
  void rebuild();
  /// Called when they were created. Called also when they could not be: the next import or CreateSchema makes them
  /// then.
  void owe_nothing() { owed_ = false; }

  /// The first is called when a transaction begins. The second is called when it was rolled back: what is owed is then
  /// again what was owed at its beginning.
  void transaction_begins() { owed_at_begin_ = owed_; }
  void transaction_was_taken_back() { owed_ = owed_at_begin_; }

 private:
  /// True when the file has had the indexes, and they were not made by another tool.
  bool are_the_files_own();
  bool were_left_out();

  Session& session_;
  bool owed_ = false;
  bool owed_at_begin_ = false;
};

}  // namespace dorvane::sqlite
