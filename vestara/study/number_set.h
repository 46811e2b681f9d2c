#pragma once  // installed

#include <cstdint>
#include <string>
#include <vector>

#include "vestara/foundation/export.h"

namespace vestara {
struct NumberMask;
}

namespace vestara::study {

/// Some of the ninety numbers, ascending, none twice.
using Numbers = std::vector<uint8_t>;

/// "5,12,33".
VESTARA_API std::string number_text(const Numbers& numbers);
NumberMask mask_of(const Numbers& numbers);

/// Numbers with the name by which an answer tells them from others.
struct NamedNumbers {
  std::string name;
  Numbers numbers;
};

/// Sets without a name of their own are called by their numbers.
NamedNumbers named_by_its_numbers(Numbers numbers);

}  // namespace vestara::study
