#include "vestara/keeping/history_text.h"

#include <cstddef>

#include "automation/coercion.h"
#include "automation/error.h"
#include "vestara/foundation/sql_text.h"

namespace vestara {
namespace {

constexpr size_t field_count = 9;

}  // namespace

HistoryRecord parse_history_record(std::string_view record) {
  std::array<std::string_view, field_count> fields;
  size_t count = 0;
  for (size_t end = 0; count < field_count && end != std::string_view::npos; ++count) {
    end = record.find('#');
    fields[count] = record.substr(0, end);
    if (end != std::string_view::npos) record.remove_prefix(end + 1);
  }
  if (count < field_count) throw automation::subscript_out_of_range();
  HistoryRecord result{fields[1], fields[2], fields[3], {}};
  for (size_t i = 0; i < result.numbers.size(); ++i) result.numbers[i] = automation::leading_number(fields[4 + i]);
  return result;
}

std::string history_delete_statement() { return "DELETE FROM storico"; }

std::string history_tuple(const HistoryRecord& record) {
  std::string tuple = "(";
  tuple.append(record.contest).append(",").append(sqlDateTime(automation::Variant(record.date)));
  tuple.append(",'").append(record.wheel).append("'");
  for (const int16_t number : record.numbers) tuple.append(",").append(std::to_string(number));
  return tuple += ")";
}

std::string history_insert_statement(std::string_view tuples) {
  std::string text = "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES";
  return text += tuples;
}

}  // namespace vestara
