#include "vestara/systems/combination_text.h"

#include <map>

#include "automation/coercion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "automation/variant.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/systems/integral.h"
#include "vestara/systems/number_series.h"

namespace vestara {
namespace {

using automation::Variant;

/// A line with every element replaced.
template <class Replacement>
std::string rewritten(std::string_view line, Replacement replacement) {
  std::string text;
  for (const std::string_view element : automation::split(line, ','))
    text.append(replacement(automation::to_long(Variant(element)))).append(",");
  if (!text.empty()) text.pop_back();
  return text;
}

}  // namespace

std::string_view trimmed_to_digits(std::string_view combinations) {
  constexpr std::string_view digits = "0123456789";
  if (automation::is_blank(combinations)) return {};
  const auto first = combinations.find_first_of(digits);
  if (first == std::string_view::npos) throw automation::overflow();
  return combinations.substr(first, combinations.find_last_of(digits) - first + 1);
}

std::string distinct_elements(std::string_view combinations) {
  std::vector<Variant> elements;
  for (const std::string_view line : combination_lines(combinations)) {
    if (line.empty()) elements.emplace_back("");
    for (const std::string_view element : automation::split(line, ',')) elements.emplace_back(element);
  }
  Variant sorted = automation::Array(automation::VariantKind::text, 0, std::move(elements));
  sort_by_number(sorted);
  std::string list;
  const std::string* before = nullptr;
  for (const Variant& item : sorted.get_if<automation::Array>()->items()) {
    const auto* element = item.get_if<std::string>();
    if (!before || *element != *before) list.append(list.empty() ? "" : ",").append(*element);
    before = element;
  }
  return list;
}

std::vector<std::string> converted_lines(std::string_view combinations, std::span<const std::string_view> old_elements,
                                         std::span<const std::string_view> new_elements) {
  std::vector<std::string> lines;
  std::map<int32_t, std::string_view> replacements;
  for (size_t i = 0; i < old_elements.size(); ++i) {
    const int32_t number = automation::to_long(Variant(old_elements[i]));
    if (number < 0) throw automation::subscript_out_of_range();
    replacements[number] = new_elements[i];
  }
  for (const std::string_view line : combination_lines(combinations)) {
    std::string text = rewritten(line, [&](int32_t number) {
      const auto found = replacements.find(number);
      if (found == replacements.end()) throw automation::subscript_out_of_range();
      return found->second;
    });
    if (!text.empty()) lines.push_back(std::move(text));
  }
  return lines;
}

std::string numbers_at(std::string_view positions, std::span<const std::string_view> numbers) {
  return rewritten(positions, [&](int32_t position) {
    if (position < 1 || static_cast<size_t>(position) > numbers.size()) throw automation::subscript_out_of_range();
    return numbers[static_cast<size_t>(position - 1)];
  });
}

}  // namespace vestara
