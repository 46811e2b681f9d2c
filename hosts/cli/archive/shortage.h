#pragma once

#include <string>

namespace vestara::host {

/// Why nothing can be opened, where the reason is that this process may open hardly any more files: "; it may open only
/// 2 more files, raise ulimit -n". "" where that is not so. Engines say then only that a file cannot be opened.
std::string shortage_of_files();

}  // namespace vestara::host
