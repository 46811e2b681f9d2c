#pragma once

#include <cstdint>
#include <string>

namespace vestara::host {

/// "the 11 rows of 2005-02-09".
std::string rows_in_words(int32_t rows, int32_t day);

}  // namespace vestara::host
