#include "dorvane/tie_order.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "automation/text.h"
#include "vestara/foundation/schema.h"

namespace dorvane {
namespace {

using vestara::draw_table;
using vestara::search_table;
using vestara::known_column::draw_contest;
using vestara::known_column::draw_day;
using vestara::known_column::draw_wheel;
using vestara::known_column::search_saved;
using Tokens = std::vector<Token>;
using Part = std::span<const Token>;
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

size_t last_pair(Part tokens, std::string_view first, std::string_view second) {
  for (size_t i = tokens.size(); i-- > 1;)
    if (is(tokens[i], second) && is(tokens[i - 1], first)) return i - 1;
  return nowhere;
}

size_t find_word(Part tokens, std::string_view word) {
  const auto found = std::find_if(tokens.begin(), tokens.end(), [&](const Token& t) { return is(t, word); });
  return found == tokens.end() ? nowhere : static_cast<size_t>(found - tokens.begin());
}

/// "q." in front of a column, or "".
std::string qualifier_before(Part tokens, size_t column) {
  const bool qualified = column >= 2 && tokens[column - 1].text == ".";
  return qualified ? std::string(tokens[column - 2].text) + "." : std::string();
}

std::string in_full(const std::string& qualifier, std::string_view column) { return qualifier + std::string(column); }

/// A SELECT cut at its outermost words.
struct Query {
  Part selected;  ///< behind SELECT
  Part from;      ///< behind FROM, with the conditions
  Part groups;    ///< behind GROUP BY; empty without
  Part order;     ///< behind ORDER BY
};

bool read_query(Part tokens, Query& query) {
  const size_t order = last_pair(tokens, "order", "by");
  if (order == nowhere || !is(tokens.front(), "select")) return false;
  const auto joins_queries = [](const Token& t) { return is_one_of(t, {"union", "except", "intersect", "minus"}); };
  if (std::any_of(tokens.begin(), tokens.end(), joins_queries)) return false;
  const size_t from = find_word(tokens.first(order), "from");
  if (from == nowhere) return false;
  query.selected = tokens.subspan(1, from - 1);
  query.from = tokens.subspan(from + 1, order - from - 1);
  query.order = tokens.subspan(order + 2);
  if (const size_t group = last_pair(query.from, "group", "by"); group != nowhere) {
    query.groups = query.from.subspan(group + 2);
    query.from = query.from.first(group);
  }
  return !query.from.empty();
}

/// The single term that the statement is ordered by.
struct Order {
  std::string qualifier;
  std::string_view column;  ///< "count" for count(*)
};

bool read_order(Part term, Order& result) {
  if (!term.empty() && is_one_of(term.back(), {"asc", "desc"})) term = term.first(term.size() - 1);
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

/// The columns behind GROUP BY as they stand, up to HAVING; "" when they are not all plain columns.
std::string grouped_columns(Part groups) {
  size_t end = 0;
  while (end < groups.size() && !is_one_of(groups[end], {"having", "window"})) ++end;
  for (size_t i = 0; i < end; ++i) {
    const bool name = i % 2 == 0;
    if (name != is_name(groups[i])) return {};
    if (!name && groups[i].text != "," && groups[i].text != ".") return {};
  }
  if (end % 2 == 0) return {};
  const std::string_view last = groups[end - 1].text;
  return {groups.front().text.data(), last.data() + last.size()};
}

/// The select list gives this name to something that is no column of it.
bool renames(Part selected, std::string_view name) {
  for (size_t i = 1; i < selected.size(); ++i) {
    const Token& before = selected[i - 1];
    const bool alias = is_name(before) ? !is_one_of(before, {"distinct", "all"}) : before.text == ")";
    if (is(selected[i], name) && (alias || before.kind == TokenKind::literal || before.kind == TokenKind::number))
      return true;
  }
  return false;
}

/// True when an unqualified column, or one with this qualifier, can only be one of the table that FROM names first.
bool means_first_table(Part from, const std::string& qualifier) {
  size_t alias = 0;
  if (from.size() > 1 && is(from[1], "as")) alias = 2;
  if (from.size() > 1 && alias == 0 && from[1].kind == TokenKind::word &&
      !is_one_of(from[1], {"where", "inner", "join", "left", "right", "full", "cross", "natural", "on"}))
    alias = 1;
  if (alias >= from.size()) return false;
  if (!qualifier.empty()) return automation::equal_ignoring_case(std::string(from[alias].text) + ".", qualifier);
  const auto joins = [](const Token& t) { return t.text == "," || is(t, "join"); };
  return std::none_of(from.begin(), from.end(), joins);
}

std::string of_date(const Query& query, const Order& by) {
  if (renames(query.selected, by.column)) return {};
  if (!query.selected.empty() && is(query.selected.front(), "distinct")) {
    const size_t contest = find_word(query.selected, draw_contest);
    if (contest == nowhere || renames(query.selected, draw_contest)) return {};
    return in_full(qualifier_before(query.selected, contest), draw_contest);
  }
  if (is(query.from.front(), draw_table.name) && query.groups.empty()) {
    const bool one_key = means_first_table(query.from, by.qualifier) && !renames(query.selected, draw_table.key());
    return one_key ? in_full(by.qualifier, draw_table.key()) : std::string();
  }
  const size_t wheel = find_word(query.selected, draw_wheel);
  return wheel == nowhere ? std::string() : in_full(qualifier_before(query.selected, wheel), draw_wheel);
}

std::string term_of(const Query& query, const Order& by) {
  const auto ordered_by = [&](std::string_view column) { return automation::equal_ignoring_case(by.column, column); };
  const bool distinct = !query.selected.empty() && is(query.selected.front(), "distinct");
  if (ordered_by("count")) return distinct ? std::string() : grouped_columns(query.groups);
  if (ordered_by(draw_day)) return of_date(query, by);
  const bool searches =
      ordered_by(search_saved) && is(query.from.front(), search_table.name) && query.groups.empty() && !distinct;
  const bool one_key = searches && means_first_table(query.from, by.qualifier) && !renames(query.selected, by.column);
  return one_key ? in_full(by.qualifier, search_table.key()) : std::string();
}

}  // namespace

std::string tie_term(std::string_view statement, const Syntax& syntax) {
  const Tokens tokens = outermost(tokens_of(statement, syntax));
  Query query;
  Order by;
  if (!read_query(tokens, query) || !read_order(query.order, by)) return {};
  const std::string term = term_of(query, by);
  return term.empty() ? std::string() : "," + term;
}

}  // namespace dorvane
