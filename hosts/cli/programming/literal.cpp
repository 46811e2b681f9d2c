#include "hosts/cli/programming/literal.h"

#include <charconv>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "automation/date.h"
#include "automation/text.h"

namespace vestara::host {
namespace {

using automation::Variant;

std::optional<Variant> named_value(std::string_view word) {
  struct Word {
    std::string_view name;
    Variant value;
  };
  static const Word words[] = {{"true", true},
                               {"false", false},
                               {"null", automation::Null{}},
                               {"empty", automation::Empty{}},
                               {"missing", automation::Missing{}},
                               {"nothing", automation::Ref<automation::Object>()}};
  for (const Word& known : words)
    if (automation::equal_ignoring_case(word, known.name)) return known.value;
  return std::nullopt;
}

std::optional<Variant> number(std::string_view word) {
  constexpr std::string_view written_with = "0123456789-+.eE";
  if (word.find_first_not_of(written_with) != std::string_view::npos) return std::nullopt;
  const auto json = nlohmann::json::parse(word, nullptr, false);
  if (!json.is_number()) return std::nullopt;
  int32_t whole = 0;
  const char* end = word.data() + word.size();
  if (json.is_number_integer() && std::from_chars(word.data(), end, whole).ec == std::errc()) return Variant(whole);
  return Variant(json.get<double>());
}

std::optional<Variant> quoted_text(std::string_view word) {
  if (word.size() < 2 || (word.front() != '"' && word.front() != '\'') || word.back() != word.front())
    return std::nullopt;
  const char quote = word.front();
  std::string text;
  for (size_t i = 1; i + 1 < word.size(); ++i) {
    if (word[i] == quote && (++i + 1 >= word.size() || word[i] != quote)) return std::nullopt;
    text += word[i];
  }
  return Variant(std::move(text));
}

}  // namespace

Variant literal(std::string_view word) {
  if (auto value = named_value(word)) return *value;
  if (auto value = number(word)) return *value;
  if (auto value = quoted_text(word)) return *value;
  if (const auto date = automation::parse_iso(word)) return *date;
  return word;
}

}  // namespace vestara::host
