#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <variant>

#include "hosts/vestara/draw_file.h"
#include "hosts/vestara/draw_file_writer.h"
#include "hosts/vestara/option_values.h"
#include "hosts/vestara/output.h"
#include "hosts/vestara/terminal.h"

// What a command line asks for, checked. Days count from 1899-12-30.

namespace vestara::host {

struct ImportOptions {
  std::string file;  ///< "-" is standard input
  bool dry_run = false;
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
  WheelSelection wheels;
  std::optional<int32_t> from;
  std::optional<int32_t> to;
  bool oldest_first = false;
  size_t table_rows = std::numeric_limits<size_t>::max();
};

struct ExportOptions {
  std::string output;  ///< empty is standard output
  DrawFormat format = DrawFormat::csv;
  ContestColumn contest = ContestColumn::absent;
};

/// A text that was asked for: help or the version.
struct TextWanted {
  std::string text;
};

using Command = std::variant<TextWanted, ImportOptions, GenerateOptions, ArchiveOptions, SearchOptions, ExportOptions>;

struct Options {
  std::string database;  ///< URL; empty for the usual archive
  OutputFormat format = OutputFormat::table;
  ColourChoice colour = ColourChoice::automatic;
  Command command;
};

}  // namespace vestara::host
