#pragma once

#include <filesystem>
#include <string>

// Who may have written a class file. It names a library that will be loaded, so it must come from the user or from
// root.

namespace automation {

/// Why a file or folder may hold what somebody else wrote, in a sentence that names it and says what would be right.
/// Empty when only the user or root may write it, and when it does not exist.
std::string why_untrusted(const std::filesystem::path& path);

/// The same of a class file: of itself, of the folder that it is looked for in and, for a link, of where it leads.
std::string why_refused(const std::filesystem::path& class_file);

}  // namespace automation
