#include "dorvane/result_names.h"

#include <algorithm>
#include <array>
#include <utility>

#include "dorvane/schema.h"

namespace dorvane {
namespace {

using Tokens = std::vector<Token>;

constexpr std::array<std::string_view, 9> list_ends{"from",  "where",  "group",     "order", "limit",
                                                    "union", "except", "intersect", ";"};

/// One term of the select list.
using Term = Tokens;

bool ends_list(const Token& token) {
  return std::any_of(list_ends.begin(), list_ends.end(), [&](std::string_view word) { return is(token, word); });
}

/// The terms between the outermost SELECT and its FROM; none when there is no such list.
std::vector<Term> select_list(const Tokens& tokens) {
  std::vector<Term> terms;
  if (tokens.empty() || !is(tokens.front(), "select")) return terms;
  terms.emplace_back();
  int depth = 0;
  for (size_t i = 1; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (token.text == "(") ++depth;
    if (token.text == ")") --depth;
    if (depth == 0 && ends_list(token)) break;
    if (i == 1 && (is(token, "distinct") || is(token, "all"))) continue;
    if (depth == 0 && token.text == ",")
      terms.emplace_back();
    else
      terms.back().push_back(token);
  }
  return terms;
}

/// "column" or "alias.column".
bool is_column(const Term& term) {
  return (term.size() == 1 || (term.size() == 3 && term[1].text == ".")) && is_name(term.back());
}

bool has_alias(const Term& term) {
  if (term.size() < 2) return false;
  const Token& before = term[term.size() - 2];
  return is(before, "as") || (is_name(term.back()) && before.text != ".");
}

std::string_view text_of(const Term& term) {
  const char* const begin = term.front().text.data();
  const std::string_view last = term.back().text;
  return {begin, static_cast<size_t>(last.data() + last.size() - begin)};
}

/// The spelling of a folded name: the tables', else that of the alias which the statement declares.
std::string spelled(const Tokens& tokens, const std::string& name) {
  if (const std::string_view column = column_spelling(name); !column.empty()) return std::string(column);
  for (size_t i = 1; i < tokens.size(); ++i)
    if (is(tokens[i - 1], "as") && is(tokens[i], name)) return std::string(tokens[i].text);
  return name;
}

}  // namespace

std::vector<std::string> result_names(std::string_view statement, const Syntax& syntax,
                                      std::vector<std::string> of_engine) {
  const Tokens tokens = tokens_of(statement, syntax);
  const auto terms = select_list(tokens);
  const bool one_each = terms.size() == of_engine.size();
  for (size_t i = 0; i < of_engine.size(); ++i) {
    const bool expression =
        one_each && !terms[i].empty() && !is_column(terms[i]) && !has_alias(terms[i]) && terms[i].back().text != "*";
    of_engine[i] = expression ? std::string(text_of(terms[i])) : spelled(tokens, of_engine[i]);
  }
  return of_engine;
}

void spell_names(std::string_view statement, const Syntax& syntax, std::vector<records::ColumnHeader>& headers) {
  std::vector<std::string> names;
  names.reserve(headers.size());
  for (records::ColumnHeader& header : headers) names.push_back(std::move(header.name));
  names = result_names(statement, syntax, std::move(names));
  for (size_t i = 0; i < names.size(); ++i) headers[i].name = std::move(names[i]);
}

}  // namespace dorvane
