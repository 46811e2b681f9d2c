#include "vestara/keeping/copy/insert_batch.h"

#include "automation/error.h"
#include "vestara/foundation/failure.h"

namespace vestara {
namespace {

constexpr size_t most_tuples = 1000;
/// Of a statement, but for a last long tuple: engines take a million and more.
constexpr size_t most_bytes = 262144;

std::string tuple_of(const LiteralRow& row) {
  std::string tuple;
  for (const std::string& value : row) tuple.append(tuple.empty() ? "(" : ",").append(value);
  return tuple += ")";
}

}  // namespace

InsertBatch::InsertBatch(const Archive& archive, const ArchiveTable& table)
    : archive_(archive),
      table_(table),
      head_("INSERT INTO " + std::string(table.name) + "(" + column_list(table) + ")VALUES") {}

void InsertBatch::add(const LiteralRow& row) {
  held_.push_back({row.front(), tuple_of(row)});
  bytes_ += held_.back().text.size();
  if (held_.size() == most_tuples || bytes_ >= most_bytes) flush();
}

void InsertBatch::flush() {
  if (held_.empty()) return;
  std::string tuples;
  tuples.reserve(bytes_ + held_.size());
  for (const Tuple& tuple : held_) tuples.append(tuples.empty() ? "" : ",").append(tuple.text);
  if (!insert(tuples)) refuse();
  held_.clear();
  bytes_ = 0;
}

bool InsertBatch::insert(const std::string& tuples) const { return archive_.connector()->ExecuteSql(head_ + tuples); }

/// Finds the row by inserting one after the other, in a transaction of their own: the old one may be spoilt.
void InsertBatch::refuse() const {
  std::string why = archive_.reason();
  std::string keys = "keys " + held_.front().key + " to " + held_.back().key;
  try {
    archive_.connector()->RollbackTrans();
    const Transaction trial(archive_);
    bool is_taken = archive_.connector()->ExecuteSql("DELETE FROM " + std::string(table_.name) + " WHERE 1=1");
    for (auto tuple = held_.begin(); is_taken && tuple != held_.end(); ++tuple) {
      is_taken = insert(tuple->text);
      if (is_taken) continue;
      keys = "key " + tuple->key;
      why = archive_.reason();
    }
  } catch (const automation::RunTimeError&) {
    why += "; the connection did not outlive it";
  }
  throw Failure(FailureKind::database,
                "table " + std::string(table_.name) + ", " + keys + ": the row is refused: " + why);
}

}  // namespace vestara
