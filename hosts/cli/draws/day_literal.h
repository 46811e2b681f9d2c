#pragma once

#include <cstdint>
#include <string>

namespace vestara::host {

/// A day counted from 1899-12-30, as a statement writes it.
std::string day_literal(int32_t day);

}  // namespace vestara::host
