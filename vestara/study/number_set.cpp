#include "vestara/study/number_set.h"

#include <utility>

#include "vestara/draws/number_mask.h"

namespace vestara::study {

std::string number_text(const Numbers& numbers) {
  std::string text;
  for (const uint8_t number : numbers) text.append(text.empty() ? "" : ",").append(std::to_string(number));
  return text;
}

NumberMask mask_of(const Numbers& numbers) {
  NumberMask mask;
  for (const uint8_t number : numbers) mask.add(number);
  return mask;
}

NamedNumbers named_by_its_numbers(Numbers numbers) {
  std::string name = number_text(numbers);
  return {std::move(name), std::move(numbers)};
}

}  // namespace vestara::study
