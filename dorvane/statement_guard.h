#pragma once

#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dorvane/tokens.h"

namespace dorvane {

/// What the statements of one engine may not hold, beyond what no engine's may. All in lower case.
struct Prohibitions {
  const Syntax& syntax;
  /// Words that no reading statement has, where they are no quoted names.
  std::span<const std::string_view> words;
  /// Functions that write, take locks, wait, run texts as statements or reach files.
  std::span<const std::string_view> functions;
  /// Names that need no parentheses to do the same.
  std::span<const std::string_view> names;
};

/// Decides which statements of a host reach the engine. Texts come from files and from people who search: what is
/// refused here is refused in any spelling. Both calls raise RunTimeError 5.
///
/// One rule for all engines. Reading: one SELECT, WITH or VALUES. Changing: one INSERT, UPDATE, DELETE or REPLACE (or
/// WITH before it), a reading statement, or CREATE, ALTER or DROP of tables, indexes, views and triggers. No
/// parameters, settings, transactions or maintenance; rows of the archive's tables as literals only.
class StatementGuard {
 public:
  explicit StatementGuard(const Prohibitions& prohibitions);

  /// Names, in lower case, of functions that one server has beyond those of `Prohibitions`; they are refused too.
  void refuse_functions(const std::vector<std::string>& names) { functions_.insert(names.begin(), names.end()); }

  void require_reading(std::string_view statement) const;
  void require_change(std::string_view statement) const;

 private:
  using Tokens = std::vector<Token>;
  void require_reading(std::string_view statement, const Tokens& tokens) const;
  void require_harmless(std::string_view statement, const Tokens& tokens) const;
  bool is_parameter(const Tokens& tokens, size_t place) const;
  bool does_harm(const Tokens& tokens, size_t place) const;

  const Prohibitions& prohibitions_;
  std::set<std::string, std::less<>> functions_;
};

}  // namespace dorvane
