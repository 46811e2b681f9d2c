#include "vestara/keeping/copy/table_reader.h"

#include "vestara/foundation/failure.h"
#include "vestara/keeping/copy/value_literal.h"

namespace vestara {
namespace {

constexpr int32_t rows_per_slice = 10000;

}  // namespace

TableReader::TableReader(const Archive& archive, const ArchiveTable& table)
    : archive_(archive), table_(table), columns_(column_list(table)), row_(table.columns.size()) {}

TableReader::~TableReader() {
  if (slice_) archive_.connector()->CloseRecordset(slice_);
}

const LiteralRow* TableReader::next() {
  if (!slice_ && !last_key_.empty()) return nullptr;
  if (!slice_ && !open_slice()) return nullptr;
  if (slice_->at_end()) {
    const bool was_last = in_slice_ < rows_per_slice;
    archive_.connector()->CloseRecordset(slice_);
    if (was_last || !open_slice()) return nullptr;
  }
  read_row();
  slice_->move_next();
  ++in_slice_;
  return &row_;
}

/// False when no row is left.
bool TableReader::open_slice() {
  const std::string key(table_.key());
  std::string statement = "SELECT " + columns_ + " FROM " + std::string(table_.name);
  if (!last_key_.empty()) statement += " WHERE " + key + ">" + last_key_;
  slice_ = archive_.rows(statement + " ORDER BY " + key + " LIMIT " + std::to_string(rows_per_slice));
  in_slice_ = 0;
  if (!slice_->at_end()) return true;
  archive_.connector()->CloseRecordset(slice_);
  return false;
}

void TableReader::read_row() {
  for (size_t i = 0; i < row_.size(); ++i) {
    const TableColumn& column = table_.columns[i];
    try {
      row_[i] = value_literal(slice_->value(Column{static_cast<int32_t>(i)}), column.kind);
    } catch (const UnfitValue& unfit) {
      fail((i == 0 ? "" : ", key " + row_[0]) + ": " + std::string(column.name) + " " + unfit.what());
    }
  }
  if (row_[0] == "NULL") fail(": a row has no key");
  if (row_[0] == last_key_) fail(", key " + row_[0] + ": two rows have it");
  last_key_ = row_[0];
}

void TableReader::fail(const std::string& what) const {
  throw Failure(FailureKind::database, "table " + std::string(table_.name) + what);
}

int64_t row_count(const Archive& archive, const ArchiveTable& table) {
  auto rows = archive.rows("SELECT count(*) AS quante FROM " + std::string(table.name));
  const int64_t count = rows->at_end() ? 0 : rows->whole_number(rows->column("quante"));
  archive.connector()->CloseRecordset(rows);
  return count;
}

}  // namespace vestara
