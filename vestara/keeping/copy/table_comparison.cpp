#include "vestara/keeping/copy/table_comparison.h"

#include <algorithm>
#include <string>

#include "vestara/foundation/failure.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/copy/table_reader.h"

namespace vestara {
namespace {

/// The part of a value in which it differs from the other.
std::string excerpt(const std::string& value, const std::string& other) {
  constexpr size_t before = 20;
  const auto [difference, _] = std::mismatch(value.begin(), value.end(), other.begin(), other.end());
  const auto place = static_cast<size_t>(difference - value.begin());
  return place <= before ? shown(value) : "…" + shown(value.substr(place - before));
}

class Comparison {
 public:
  explicit Comparison(const ArchiveTable& table) : table_(table) {}

  void require_equal(const LiteralRow* source, const LiteralRow* copy) const {
    if (!copy) fail(", key " + source->front() + ": the copy lacks the row");
    if (!source) fail(", key " + copy->front() + ": only the copy has the row");
    for (size_t i = 0; i < source->size(); ++i)
      if ((*source)[i] != (*copy)[i])
        fail(", key " + source->front() + ", column " + std::string(table_.columns[i].name) + ": " +
             excerpt((*source)[i], (*copy)[i]) + " in the source, " + excerpt((*copy)[i], (*source)[i]) +
             " in the copy");
  }

  void require_count(int64_t read, int64_t counted, const std::string& where) const {
    if (read != counted)
      fail(": " + std::to_string(counted) + " rows are in the " + where + ", " + std::to_string(read) +
           " of them were found by their keys; keys must differ");
  }

 private:
  [[noreturn]] void fail(const std::string& what) const {
    throw Failure(FailureKind::database,
                  "the copy is not like its source and was taken back: table " + std::string(table_.name) + what);
  }

  const ArchiveTable& table_;
};

}  // namespace

int64_t compare_tables(const Archive& from, const Archive& to, const ArchiveTable& table, RowProgress& progress) {
  const Comparison comparison(table);
  TableReader source_rows(from, table);
  TableReader copied_rows(to, table);
  int64_t equal = 0;
  while (true) {
    const LiteralRow* const source = source_rows.next();
    const LiteralRow* const copy = copied_rows.next();
    if (!source && !copy) break;
    comparison.require_equal(source, copy);
    ++equal;
    progress.advance();
  }
  comparison.require_count(equal, row_count(from, table), "source");
  comparison.require_count(equal, row_count(to, table), "copy");
  return equal;
}

}  // namespace vestara
