#include "dorvane/tie_order.h"

#include <algorithm>
#include <vector>

#include "dorvane/statement.h"

namespace dorvane {
namespace {

using Tokens = std::vector<Token>;
constexpr size_t nowhere = static_cast<size_t>(-1);

/// Only what stands outside every parenthesis; the parentheses themselves stay, empty.
Tokens outermost(const Tokens& tokens) {
  Tokens result;
  int depth = 0;
  for (const Token& token : tokens) {
    if (token.text == ")") --depth;
    if (depth == 0) result.push_back(token);
    if (token.text == "(") ++depth;
  }
  return result;
}

size_t last_pair(const Tokens& tokens, std::string_view first, std::string_view second) {
  for (size_t i = tokens.size(); i-- > 1;)
    if (is(tokens[i], second) && is(tokens[i - 1], first)) return i - 1;
  return nowhere;
}

size_t find_word(const Tokens& tokens, std::string_view word) {
  const auto found = std::find_if(tokens.begin(), tokens.end(), [&](const Token& t) { return is(t, word); });
  return found == tokens.end() ? nowhere : static_cast<size_t>(found - tokens.begin());
}

/// "q." in front of a column, or "".
std::string qualifier_before(const Tokens& tokens, size_t column) {
  const bool qualified = column >= 2 && tokens[column - 1].text == ".";
  return qualified ? std::string(tokens[column - 2].text) + "." : std::string();
}

/// The single term that the statement is ordered by.
struct Order {
  std::string qualifier;
  std::string_view column;  ///< "count" for count(*)
};

bool read_order(const Tokens& tokens, size_t order, Order& result) {
  Tokens term(tokens.begin() + static_cast<std::ptrdiff_t>(order) + 2, tokens.end());
  if (!term.empty() && term.back().text == ";") return false;
  if (!term.empty() && (is(term.back(), "asc") || is(term.back(), "desc"))) term.pop_back();
  if (term.size() == 3 && is(term[0], "count") && term[1].text == "(") {
    result.column = term[0].text;
    return true;
  }
  const bool plain = term.size() == 1 || (term.size() == 3 && term[1].text == ".");
  if (!plain || term.back().kind != TokenKind::word) return false;
  result.column = term.back().text;
  result.qualifier = qualifier_before(term, term.size() - 1);
  return true;
}

/// The text between GROUP BY and the order.
std::string groups(const Tokens& tokens, size_t order) {
  const size_t group = last_pair(tokens, "group", "by");
  if (group == nowhere || group + 2 >= order) return {};
  const char* begin = tokens[group + 2].text.data();
  const std::string_view last = tokens[order - 1].text;
  return {begin, last.data() + last.size()};
}

std::string tie_term(const Tokens& tokens, size_t order) {
  Order by;
  if (!read_order(tokens, order, by)) return {};
  if (is({TokenKind::word, by.column}, "count")) return groups(tokens, order);
  if (is({TokenKind::word, by.column}, "dtSave")) return by.qualifier + "idRicerca";
  if (!is({TokenKind::word, by.column}, "dtEstr")) return {};

  const size_t from = find_word(tokens, "from");
  if (from == nowhere || from + 1 >= tokens.size()) return {};
  const Tokens selected(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(from));
  if (selected.size() > 1 && is(selected[1], "distinct"))
    return find_word(selected, "concorsoNumero") == nowhere ? std::string() : by.qualifier + "concorsoNumero";
  if (is(tokens[from + 1], "storico") && last_pair(tokens, "group", "by") == nowhere) return by.qualifier + "id";
  const size_t wheel = find_word(selected, "ruota");
  return wheel == nowhere ? std::string() : qualifier_before(selected, wheel) + "ruota";
}

}  // namespace

std::string with_tie_order(std::string_view statement) {
  const Tokens tokens = outermost(tokens_of(statement));
  const size_t order = last_pair(tokens, "order", "by");
  if (order == nowhere || !is(tokens.front(), "select")) return std::string(statement);
  const std::string term = tie_term(tokens, order);
  return term.empty() ? std::string(statement) : std::string(statement) + "," + term;
}

}  // namespace dorvane
