#include "hosts/cli/keeping/draw_insertion.h"

#include <algorithm>
#include <optional>
#include <string>

#include "hosts/cli/draws/day_literal.h"
#include "hosts/cli/draws/wheel_names.h"
#include "vestara/archive/history_text.h"

namespace vestara::host {
namespace {

constexpr const char* refused = "the archive refuses the draws, nothing was changed";

void execute(const ArchiveSession& session, const std::string& statement) {
  if (!session.connector()->ExecuteSql(statement)) session.fail(refused);
}

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

void insert_draws(const ArchiveSession& session, std::span<const DrawRow> rows, const InsertionProgress& progress) {
  TupleWriter writer;
  for (size_t stored = 0; stored < rows.size();) {
    const auto next = rows.subspan(stored, std::min<size_t>(rows.size() - stored, rows_per_statement));
    std::string tuples;
    for (const DrawRow& row : next) writer.append(tuples, row);
    execute(session, history_insert_statement(tuples));
    stored += next.size();
    if (progress) progress(stored, rows.size());
  }
}

void delete_draws(const ArchiveSession& session, int32_t day) {
  execute(session, "DELETE FROM storico WHERE dtEstr=" + day_literal(day));
}

void delete_all_draws(const ArchiveSession& session) { execute(session, history_delete_statement()); }

}  // namespace vestara::host
