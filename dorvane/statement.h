#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace dorvane {

/// What a stretch of statement text is. Literals are '…', quoted names "…", `…` or […]; a comment runs to the end
/// of its line (--) or to its closing mark.
enum class TokenKind { word, number, literal, quoted_name, symbol, comment, blank };

struct Token {
  TokenKind kind;
  std::string_view text;
};

/// True when the token is this word, whatever its case.
bool is(const Token& token, std::string_view word);

/// The token at the front of `text`, which is not empty. A literal or comment without an end runs to the end.
Token next_token(std::string_view text);

/// The tokens that mean something: blanks and comments left out.
std::vector<Token> tokens_of(std::string_view statement);

/// True when nothing but blanks, comments and semicolons is left.
bool is_trivia(std::string_view text);

/// The statement with every pair of backslashes inside a literal made one; byte for byte itself when there is none.
std::string undouble_backslashes(std::string_view statement);

/// Raises RunTimeError 5 unless the statement begins as one that reads and holds no word that could write.
void require_reading(std::string_view statement);
/// Raises RunTimeError 5 unless the statement begins as one that changes rows or tables, or reads.
void require_change(std::string_view statement);
/// True for CREATE, ALTER and DROP, which some engines keep at once whatever the transaction.
bool changes_tables(std::string_view statement);

/// The statement with every LIKE, where it is no name, as `like` (which may be a word of the engine's own), and
/// `behind` put after a pattern that is one literal without an ESCAPE of its own.
std::string rewrite_like(std::string_view statement, std::string_view like, std::string_view behind);

/// The statement that asks for the largest value of a column. Raises RunTimeError 5 when the two are not plain names.
std::string largest_value(std::string_view table, std::string_view column);

/// True for "DELETE FROM storico" without a condition, in any case and spacing.
bool empties_the_archive(std::string_view statement);

}  // namespace dorvane
