#pragma once  // for hosts

#include <cstddef>
#include <string>

#include "vestara/foundation/export.h"
#include "vestara/foundation/failure.h"

namespace vestara {

/// The name that stands for standard input.
inline constexpr const char* standard_input = "-";

/// Bytes that a file may have, and what a packed one may hold: 256 MiB.
inline constexpr size_t largest_input = size_t{256} << 20;
/// The failure for a larger file; it names the limit.
VESTARA_API Failure too_large(const std::string& name);

/// How the file is called in messages.
VESTARA_API std::string source_name(const std::string& path);

/// The bytes as they are, or what a zip or gzip file holds. Failure (file) for a packed one that is damaged or too
/// large.
VESTARA_API std::string unpacked(std::string bytes, const std::string& name);

/// All bytes of a file, or of standard input; of a zip archive the one file in it, of a gzip file what it holds.
/// Failure (file) when it cannot be read or is too large.
VESTARA_API std::string read_source(const std::string& path);

}  // namespace vestara
