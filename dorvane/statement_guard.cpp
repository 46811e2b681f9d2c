#include "dorvane/statement_guard.h"

#include <algorithm>
#include <initializer_list>

#include "automation/error.h"
#include "automation/text.h"
#include "dorvane/literal_insert.h"
#include "dorvane/statement.h"

namespace dorvane {
namespace {

using automation::RunTimeError;

/// What may stand between CREATE, ALTER or DROP and what it is about.
bool is_modifier(const Token& token) {
  return is_one_of(token, {"or", "replace", "temp", "temporary", "unlogged", "unique", "fulltext", "materialized",
                           "recursive", "online", "ignore"});
}

bool is_about_tables(const std::vector<Token>& tokens) {
  size_t about = 1;
  while (about < tokens.size() && is_modifier(tokens[about])) ++about;
  return about < tokens.size() && is_one_of(tokens[about], {"table", "index", "view", "trigger"});
}

bool contains(std::span<const std::string_view> words, std::string_view word) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

RunTimeError not_allowed(std::string_view statement) {
  return automation::invalid_call(
      automation::concatenated({"not authorized; readers run one SELECT, changes one INSERT, UPDATE or DELETE, "
                                "or CREATE, ALTER or DROP of a table, index, view or trigger; transactions have "
                                "calls of their own; in: ",
                                statement.substr(0, shown_statement)}));
}

RunTimeError refused(std::string_view what, std::string_view why) {
  return automation::invalid_call(automation::concatenated({"not authorized: ", what, why}));
}

/// Two words that together count a sequence on, or put a table's file elsewhere.
bool is_harmful_pair(const std::vector<Token>& tokens, size_t place) {
  if (place + 1 >= tokens.size()) return false;
  const Token& second = tokens[place + 1];
  return (is(tokens[place], "next") && is(second, "value")) ||
         (is_one_of(tokens[place], {"data", "index"}) && is(second, "directory"));
}

/// The name that a token stands for, when it is one.
std::string name_of(const Token& token) { return is_name(token) ? automation::lower_case(bare_name(token)) : ""; }

/// The text begins right behind the token.
bool touches(const Token& token, const Token& next) {
  return token.text.data() + token.text.size() == next.text.data();
}

}  // namespace

StatementGuard::StatementGuard(const Prohibitions& prohibitions)
    : prohibitions_(prohibitions), functions_(prohibitions.functions.begin(), prohibitions.functions.end()) {}

/// In any form that an engine knows, so that a statement means the same to all of them.
bool StatementGuard::is_parameter(const Tokens& tokens, size_t place) const {
  const Token& token = tokens[place];
  if (token.kind != TokenKind::symbol) return false;
  if (token.text == "?" || token.text == "$") return true;
  if (token.text != ":" && token.text != "@") return false;
  if (!prohibitions_.syntax.colon_and_at_operators) return true;
  const bool before_name = place + 1 < tokens.size() && touches(token, tokens[place + 1]) && is_name(tokens[place + 1]);
  const bool casts =
      token.text == ":" && place > 0 && tokens[place - 1].text == ":" && touches(tokens[place - 1], token);
  return before_name && !casts;
}

bool StatementGuard::does_harm(const Tokens& tokens, size_t place) const {
  const std::string name = name_of(tokens[place]);
  if (name.empty()) return false;
  const bool called = place + 1 < tokens.size() && tokens[place + 1].text == "(";
  return is_harmful_pair(tokens, place) || contains(prohibitions_.names, name) || (called && functions_.contains(name));
}

void StatementGuard::require_harmless(std::string_view statement, const Tokens& tokens) const {
  if (statement.find('\0') != std::string_view::npos)
    throw automation::invalid_call("the statement holds a NUL character");
  for (size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].kind == TokenKind::unusual)
      throw refused(tokens[i].text.substr(0, 20), " is not taken; texts are written '…', a mark inside doubled");
    if (is_parameter(tokens, i))
      throw refused(tokens[i].text,
                    " stands for a parameter, and statements have none; where it is an operator,"
                    " a blank comes behind it, and '?' has a function of the same meaning");
    if (does_harm(tokens, i))
      throw refused(tokens[i].text,
                    " may write, wait, take locks or reach files; a function of your own that only"
                    " reads is to be declared so (STABLE)");
  }
}

void StatementGuard::require_reading(std::string_view statement, const Tokens& tokens) const {
  require_harmless(statement, tokens);
  if (!is_one_of(first_word(statement, prohibitions_.syntax), {"select", "with", "values"}))
    throw not_allowed(statement);
  for (const Token& token : tokens)
    if (token.kind == TokenKind::word && contains(prohibitions_.words, automation::lower_case(token.text)))
      throw not_allowed(statement);
}

void StatementGuard::require_reading(std::string_view statement) const {
  require_reading(statement, tokens_of(statement, prohibitions_.syntax));
}

void StatementGuard::require_change(std::string_view statement) const {
  const Syntax& syntax = prohibitions_.syntax;
  const Token first = first_word(statement, syntax);
  if (is_one_of(first, {"insert", "replace"}) && inserts_literals(statement, syntax)) return;
  const Tokens tokens = tokens_of(statement, syntax);
  if (is_one_of(first, {"select"})) return require_reading(statement, tokens);
  require_harmless(statement, tokens);
  const bool changes = is_one_of(first, {"insert", "update", "delete", "replace", "with"});
  if (!changes && !(changes_tables(statement, syntax) && is_about_tables(tokens))) throw not_allowed(statement);
  if (changes) require_no_computed_rows(tokens);
}

}  // namespace dorvane
