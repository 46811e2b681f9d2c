#pragma once

#include <string>

#include "tests/support/random_archive.h"

namespace testing_support {

/// The draws of a file "date,wheel,n1,…,n5" with a head line, sorted by date. A draw's contest is the place of its date
/// in the year.
Archive archive_in_file(const std::string& path);

}  // namespace testing_support
