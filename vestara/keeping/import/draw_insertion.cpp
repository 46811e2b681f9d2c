#include "vestara/keeping/import/draw_insertion.h"

#include <algorithm>
#include <optional>
#include <string>

#include "vestara/archive/history_text.h"
#include "vestara/draws/day_literal.h"
#include "vestara/draws/wheel_names.h"

namespace vestara {
namespace {

constexpr const char* refused = "the archive refuses the draws, nothing was changed";

/// Rows of one day follow each other: its literal is made once.
class TupleWriter {
 public:
  void append(std::string& tuples, const DrawRow& row) {
    if (row.day != day_) {
      day_ = row.day;
      literal_ = day_literal(row.day);
    }
    tuples.append(tuples.empty() ? "(" : ",(").append(std::to_string(row.contest)).append(",").append(literal_);
    tuples.append(",'").append(wheel_code(row.wheel)).append("'");
    for (const int8_t number : row.numbers) tuples.append(",").append(std::to_string(number));
    tuples += ')';
  }

 private:
  std::optional<int32_t> day_;
  std::string literal_;
};

}  // namespace

void insert_draws(const Archive& archive, std::span<const DrawRow> rows, const Progress& progress) {
  TupleWriter writer;
  for (size_t stored = 0; stored < rows.size();) {
    const auto next = rows.subspan(stored, std::min<size_t>(rows.size() - stored, rows_per_statement));
    std::string tuples;
    for (const DrawRow& row : next) writer.append(tuples, row);
    archive.execute(history_insert_statement(tuples), refused);
    stored += next.size();
    if (progress) progress(stored, rows.size());
  }
}

void delete_draws(const Archive& archive, int32_t day) {
  archive.execute("DELETE FROM storico WHERE dtEstr=" + day_literal(day), refused);
}

void delete_all_draws(const Archive& archive) { archive.execute(history_delete_statement(), refused); }

}  // namespace vestara
