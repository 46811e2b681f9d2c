#pragma once

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "automation/ref.h"
#include "dorvane/connector.h"
#include "vestara/keeping/history_text.h"

// The archive that the workloads run on: the real one when the environment variable VESTARA_REAL_ARCHIVE names its
// CSV, otherwise a synthetic one of the same size.

namespace bench {

[[noreturn]] inline void stop(const std::string& reason) {
  std::fprintf(stderr, "bench: %s\n", reason.c_str());
  std::exit(1);
}

/// Tuples ("(1,'1871-01-07','FI',15,71,18,64,81)") of the real archive, empty without one.
inline std::vector<std::string> real_tuples() {
  std::vector<std::string> tuples;
  const char* path = std::getenv("VESTARA_REAL_ARCHIVE");
  if (!path) return tuples;
  std::FILE* file = std::fopen(path, "r");
  if (!file) stop(std::string("cannot read ") + path);
  char line[128];
  while (std::fgets(line, sizeof line, file)) {
    char wheel[8];
    int y, m, d, n1, n2, n3, n4, n5;
    if (std::sscanf(line, "%d-%d-%d,%2[A-Z],%d,%d,%d,%d,%d", &y, &m, &d, wheel, &n1, &n2, &n3, &n4, &n5) != 9) continue;
    char tuple[128];
    std::snprintf(tuple, sizeof tuple, "(%d,'%04d-%02d-%02d','%s',%d,%d,%d,%d,%d)", (m * 31 + d) % 200 + 1, y, m, d,
                  wheel, n1, n2, n3, n4, n5);
    tuples.emplace_back(tuple);
  }
  std::fclose(file);
  return tuples;
}

inline constexpr size_t real_rows = 105156;
inline constexpr size_t million_rows = 1000000;

/// The same of so many rows by chance, from 1871 on, every wheel on 336 dates a year.
inline std::vector<std::string> synthetic_tuples(size_t rows) {
  const char* wheels[] = {"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"};
  unsigned state = 1;
  const auto below = [&](unsigned limit) { return ((state = state * 1664525U + 1013904223U) >> 16) % limit; };
  std::vector<std::string> tuples;
  for (int day = 0; tuples.size() < rows; ++day)
    for (const char* wheel : wheels) {
      unsigned numbers[5];
      for (int i = 0; i < 5; ++i) {
        do {
          numbers[i] = below(90) + 1;
        } while (std::find(numbers, numbers + i, numbers[i]) != numbers + i);
      }
      char tuple[128];
      std::snprintf(tuple, sizeof tuple, "(%d,'%04d-%02d-%02d','%s',%u,%u,%u,%u,%u)", day % 200 + 1, 1871 + day / 336,
                    day / 28 % 12 + 1, day % 28 + 1, wheel, numbers[0], numbers[1], numbers[2], numbers[3], numbers[4]);
      tuples.emplace_back(tuple);
    }
  return tuples;
}

/// The real archive, or one by chance of its size.
inline std::vector<std::string> archive_tuples() {
  std::vector<std::string> tuples = real_tuples();
  return tuples.empty() ? synthetic_tuples(real_rows) : tuples;
}

/// The library's own multi-row texts over these tuples; the remainder in a shorter one.
inline std::vector<std::string> insert_texts(const std::vector<std::string>& tuples) {
  std::vector<std::string> texts;
  std::string batch;
  for (size_t i = 0; i < tuples.size(); ++i) {
    batch += (batch.empty() ? "" : ",") + tuples[i];
    if ((i + 1) % vestara::rows_per_statement != 0 && i + 1 != tuples.size()) continue;
    texts.push_back(vestara::history_insert_statement(batch));
    batch.clear();
  }
  return texts;
}

/// A file that goes away with its companions.
class ArchiveFile {
 public:
  explicit ArchiveFile(const std::string& name)
      : path_((std::filesystem::temp_directory_path() / ("vestara-bench-" + name)).string()) {
    remove();
  }
  ~ArchiveFile() { remove(); }
  ArchiveFile(const ArchiveFile&) = delete;
  ArchiveFile& operator=(const ArchiveFile&) = delete;
  const std::string& path() const { return path_; }

 private:
  void remove() const {
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(path_ + suffix);
  }
  std::string path_;
};

inline automation::Ref<dorvane::DbConnector> open_connector(const std::string& path) {
  auto connector = automation::make<dorvane::DbConnector>();
  if (!connector->Open("sqlite:" + path)) stop(connector->LastError());
  return connector;
}

inline sqlite3* open_bare(const std::string& path) {
  sqlite3* database = nullptr;
  if (sqlite3_open_v2(path.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK)
    stop(sqlite3_errmsg(database));
  return database;
}

inline void run_bare(sqlite3* database, const std::string& statement) {
  if (sqlite3_exec(database, statement.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) stop(sqlite3_errmsg(database));
}

/// A file filled with rows, open through the library's connector and through the bare engine.
class LoadedArchive {
 public:
  LoadedArchive(const std::string& name, const std::vector<std::string>& tuples)
      : file_(name), connector_(open_connector(file_.path())) {
    if (!connector_->CreateSchema()) stop(connector_->LastError());
    connector_->BeginTrans();
    if (!connector_->ExecuteSql("DELETE FROM storico")) stop(connector_->LastError());
    for (const std::string& text : insert_texts(tuples))
      if (!connector_->ExecuteSql(text)) stop(connector_->LastError());
    connector_->CommitTrans();
    bare_ = open_bare(file_.path());
  }
  ~LoadedArchive() { sqlite3_close(bare_); }
  LoadedArchive(const LoadedArchive&) = delete;
  LoadedArchive& operator=(const LoadedArchive&) = delete;

  const automation::Ref<dorvane::DbConnector>& connector() const { return connector_; }
  sqlite3* bare() const { return bare_; }
  const std::string& path() const { return file_.path(); }

 private:
  ArchiveFile file_;
  automation::Ref<dorvane::DbConnector> connector_;
  sqlite3* bare_ = nullptr;
};

/// Steps through a statement and reads nothing.
inline void step_all(sqlite3* database, const std::string& statement) {
  sqlite3_stmt* prepared = nullptr;
  if (sqlite3_prepare_v2(database, statement.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
    stop(sqlite3_errmsg(database));
  while (sqlite3_step(prepared) == SQLITE_ROW) {
  }
  sqlite3_finalize(prepared);
}

}  // namespace bench
