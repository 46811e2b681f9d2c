#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "automation/object.h"
#include "automation/registration.h"
#include "hosts/cli/options/number_options.h"
#include "hosts/cli/options/option_values.h"
#include "hosts/cli/options/system_options.h"
#include "hosts/cli/output/output.h"
#include "hosts/cli/terminal/confirmation.h"
#include "hosts/cli/terminal/terminal.h"
#include "vestara/draws/draw_row.h"
#include "vestara/files/draw_file_writer.h"
#include "vestara/keeping/copy/archive_copy.h"
#include "vestara/keeping/import/import_mode.h"
#include "vestara/keeping/import/manual_draws.h"

// What a command line asks for, checked. Days count from 1899-12-30.

namespace vestara::host {

/// Whether rows that go are kept in a file.
enum class Backup : bool { none, file };

struct ImportOptions {
  std::string file;  ///< "-" is standard input
  bool dry_run = false;
  ImportMode mode = ImportMode::guarded;
  MissingManual missing_manual = MissingManual::lose;
  Backup backup = Backup::file;
  Consent consent = Consent::ask;
};

struct GenerateOptions {
  uint64_t seed = 0;
  int32_t from = 0;
  int32_t to = 0;
  std::string output;  ///< empty is standard output
};

struct ArchiveOptions {};

struct SearchOptions {
  NumberList numbers;
  int16_t hits = 1;
  DrawRange draws;
  bool oldest_first = false;
  size_t table_rows = std::numeric_limits<size_t>::max();
  bool statistics = false;
};

struct DistancesOptions {
  SearchOptions search;
  bool wheel_draws = false;
  bool plot = false;
};

struct ProbabilityOptions {
  int16_t numbers = 0;
  int16_t hits = 1;
  int16_t wheels = 1;
};

struct CombinationsOptions {
  NumberList numbers;
  int32_t size = 0;  ///< 1 to as many as there are numbers
  bool count_only = false;
  std::optional<uint64_t> first;
};

struct ExportOptions {
  std::string output;  ///< empty is standard output
  DrawFormat format = DrawFormat::csv;
  ContestColumn contest = ContestColumn::absent;
};

struct CopyOptions {
  std::string from;  ///< URLs
  std::string to;
  HeldRows held = HeldRows::refuse;
};

struct BackupOptions {
  std::string file;
  Consent consent = Consent::ask;  ///< to replace a file
};
struct RestoreOptions {
  std::string file;
  Consent consent = Consent::ask;  ///< to replace what the archive holds
};

struct DoctorOptions {};

struct DrawShowOptions {
  std::optional<int32_t> day;
  int32_t back = 1;  ///< without a day: the draw so many draws back, 1 being the newest
};
struct DrawSaveOptions {
  int32_t day = 0;
  std::optional<int16_t> contest;  ///< without it, the place of the day in its year
  std::vector<DrawRow> rows;       ///< of the wheels that were given; empty with `file`
  std::string file;                ///< a file of draws; "-" is standard input
  Consent consent = Consent::ask;
};
struct DrawDeleteOptions {
  int32_t day = 0;
  Consent consent = Consent::ask;
};
using DrawOptions = std::variant<DrawShowOptions, DrawSaveOptions, DrawDeleteOptions>;

struct SavedListOptions {};
struct SavedShowOptions {
  int32_t id = 0;
};
struct SavedSaveOptions {
  int32_t id = 0;  ///< 0 for a new one
  std::string name;
  SearchOptions search;
  Consent consent = Consent::ask;  ///< to replace another search
};
struct SavedRunOptions {
  int32_t id = 0;
};
struct SavedDeleteOptions {
  int32_t id = 0;
  Consent consent = Consent::ask;
};
using SavedOptions =
    std::variant<SavedListOptions, SavedShowOptions, SavedSaveOptions, SavedRunOptions, SavedDeleteOptions>;

struct DescribeOptions {
  std::string class_name;  ///< empty for all
  bool all = false;
  bool json = false;
};

struct CallOptions {
  std::string class_name;
  std::string member;
  std::vector<std::string> arguments;
  automation::InvokeKind kind = automation::InvokeKind::method;
  std::string on;  ///< path from the object to the one whose member is called; empty for the object itself
  std::vector<std::pair<std::string, std::string>> settings;  ///< property and value, in order
  std::vector<std::string> reads;                             ///< paths from the object
  size_t most_rows = std::numeric_limits<size_t>::max();
};

struct RegistrationOptions {
  automation::Scope scope = automation::Scope::user;
};
struct RegisterOptions : RegistrationOptions {};
struct UnregisterOptions : RegistrationOptions {};
struct ClassesOptions {};

/// A text that was asked for: help or the version.
struct TextWanted {
  std::string text;
};

using Command =
    std::variant<TextWanted, ImportOptions, GenerateOptions, ArchiveOptions, SearchOptions, DistancesOptions,
                 ProbabilityOptions, CombinationsOptions, DelaysOptions, FrequenciesOptions, TableOptions, GapsOptions,
                 ExportOptions, CopyOptions, BackupOptions, RestoreOptions, DoctorOptions, DrawOptions, SavedOptions,
                 SystemOptions, DescribeOptions, CallOptions, RegisterOptions, UnregisterOptions, ClassesOptions>;

struct Options {
  std::string database;  ///< URL; empty for the usual archive
  OutputFormat format = OutputFormat::table;
  ColourChoice colour = ColourChoice::automatic;
  Command command;
};

}  // namespace vestara::host
