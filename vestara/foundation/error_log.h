#pragma once

#include <string>

#include "automation/error.h"
#include "automation/export.h"

namespace vestara {

/// Appends one entry to the error log: an empty line, then time and label, description, number. The log
/// ("ErrVestara.log") lies in the folder of this library, or in the folder that the environment variable
/// VESTARA_LOG_DIR or `set_log_folder` names. Entries are only ever appended, each in one write; the file is
/// closed between them. A log that cannot be written loses the entry and nothing else.
///
/// `label` comes back as the formatted entry, without the line break before it.
VESTARA_API void WriteErrLog(std::string& label, const automation::RunTimeError& error) noexcept;

/// Another folder for the log, for the whole process; empty goes back to the usual one.
VESTARA_API void set_log_folder(std::string folder);

/// The full path of the log as the next entry will use it.
VESTARA_API std::string log_path();

}  // namespace vestara
