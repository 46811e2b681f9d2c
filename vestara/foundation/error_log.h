#pragma once  // installed

#include <string>
#include <string_view>

#include "automation/date.h"
#include "automation/error.h"
#include "vestara/foundation/export.h"

// The error log ("ErrVestara.log") lies in the folder that `set_log_folder` names, else in the one that the environment
// variable VESTARA_LOG_DIR names, else beside this library. Where this user cannot write it there, as with an installed
// library, it lies in the user's state folder.
//
// Any thread may call these, at the same time as others.

namespace vestara {

/// Appends one entry to the error log: an empty line, then time and label, description, number. Each entry goes out in
/// one write, and the file is closed between them. Only a regular file is written. A log of 4 MiB is renamed, ".1"
/// after its name, and a new one is begun. Where the log cannot be written the entry is lost, and no error is raised.
///
/// `label` comes back as the formatted entry, without the line break before it.
VESTARA_API void WriteErrLog(std::string& label, const automation::RunTimeError& error) noexcept;

/// The entry of one moment, without the line breaks around it. Line breaks and control characters in label and
/// description become "?". A very long text is cut.
VESTARA_API std::string log_entry(std::string_view label, const automation::RunTimeError& error,
                                  automation::Date moment);

/// Another folder for the log, for the whole process; empty goes back to the usual one.
VESTARA_API void set_log_folder(std::string folder);

/// The full path of the log as the next entry will use it.
VESTARA_API std::string log_path();

/// The log in this folder, or, where this user cannot write it there, in the state folder when there is one.
VESTARA_API std::string writable_log(const std::string& folder);

/// The user's state folder for this library: "vestara" in XDG_STATE_HOME or in ~/.local/state, on Windows in
/// LOCALAPPDATA. Empty when the environment names no absolute path. It is made with its first entry.
VESTARA_API std::string state_folder();

}  // namespace vestara
