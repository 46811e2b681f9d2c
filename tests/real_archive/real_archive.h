#pragma once

#include <string>

#include "dorvane/connector.h"

namespace real_archive {

/// Path of the CSV file (header date,wheel,n1,…,n5); "" when none was given.
std::string path();

/// A connector to an archive in memory that holds the file's rows, loaded once per process. Contest numbers count
/// the dates of a year.
automation::Ref<dorvane::DbConnector> connector();

}  // namespace real_archive
