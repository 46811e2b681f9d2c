#pragma once

#include <cstdint>
#include <string>

#include "vestara/foundation/export.h"

namespace vestara {

/// A day counted from 1899-12-30, as a statement writes it.
VESTARA_API std::string day_literal(int32_t day);

}  // namespace vestara
