#include "vestara/keeping/history_import.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <vector>

#include "automation/error.h"
#include "automation/int16.h"
#include "automation/system/file.h"
#include "automation/text.h"
#include "automation/yield.h"
#include "vestara/foundation/trap.h"
#include "vestara/keeping/draw_changes.h"
#include "vestara/keeping/history_batch.h"
#include "vestara/keeping/history_text.h"

namespace vestara {
namespace {

using Records = std::vector<std::string_view>;

/// Adds the records to a batch, one by one.
auto reading(const Records& records) {
  return [&records](HistoryBatch& batch, size_t row) { batch.add(parse_history_record(records[row])); };
}

/// Positions count from 0 and the count is the last index: the last record reports both equal.
void import_row_by_row(DbConnector& connector, const Records& records, const ImportProgress& progress) {
  const int32_t last = automation::checked_long(static_cast<int64_t>(records.size()) - 1);
  const auto sent = [&](size_t position) {
    progress(static_cast<int32_t>(position - 1), last);
    automation::yield_to_host();
  };
  if (!send_rows(connector, records.size(), 1, Remainder::left, reading(records), sent)) throw refused();
}

/// Positions count from 1 here.
void import_in_batches(DbConnector& connector, const Records& records, const ImportProgress& progress) {
  const int32_t count = automation::checked_long(static_cast<int64_t>(records.size()));
  const auto sent = [&](size_t position) {
    progress(static_cast<int32_t>(position), count);
    automation::yield_to_host();
    automation::yield_to_host();
  };
  if (!send_rows(connector, records.size(), rows_per_statement, Remainder::left, reading(records), sent))
    throw refused();
}

automation::RunTimeError open_error(int code) {
  switch (code) {
    case ENOENT:
    case ENOTDIR:
      return automation::path_not_found();
    case EACCES:
    case EPERM:
      return automation::permission_denied();
    default:
      return automation::path_file_access();
  }
}

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// A missing file is created: hosts rely on finding it afterwards.
File open_or_create(const std::string& path) {
  File file(automation::open_file(path, "rb"), &std::fclose);
  if (!file && errno == ENOENT) file.reset(automation::open_file(path, "a+b"));
  if (!file) throw open_error(errno);
  return file;
}

}  // namespace

void import_history(DbConnector& connector, DatabaseType type, std::string_view text, const ImportProgress& progress) {
  const Records records = automation::split(text, '*');
  // Whether the archive could be emptied is not asked: the inserts tell.
  connector.ExecuteSql(history_delete_statement());
  switch (type) {
    case DatabaseType::one_row_per_insert:
      return import_row_by_row(connector, records, progress);
    case DatabaseType::many_rows_per_insert:
      return import_in_batches(connector, records, progress);
  }
}

std::string read_update_file(const std::string& path) {
  if (path.empty()) throw automation::path_file_access();
  const File file = open_or_create(path);
  std::string bytes;
  std::array<char, 65536> block{};
  while (const size_t count = std::fread(block.data(), 1, block.size(), file.get())) bytes.append(block.data(), count);
  if (std::ferror(file.get())) throw automation::path_file_access();
  return automation::from_code_page_1252(bytes);
}

}  // namespace vestara
