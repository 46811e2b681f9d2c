#pragma once

#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <vector>

// Cuts a statement into tokens as the engine does that will run it. What is a text or a comment to one engine is code
// to another.

namespace dorvane {

/// How the engines read statements differently. '…' is a literal and "…" a quoted name everywhere, a mark inside
/// doubled; a backslash is a character like any other.
struct Syntax {
  bool backtick_names = false;          ///< `…` is a quoted name
  bool bracket_names = false;           ///< […] is a quoted name
  bool nested_comments = false;         ///< /* /* */ */ is one comment
  bool return_ends_comment = false;     ///< a carriage return ends a "--" comment, as a line feed does everywhere
  bool blank_after_dashes = false;      ///< "--" begins a comment only before a blank, a control character or the end
  bool hash_comments = false;           ///< "#" begins a comment to the end of its line
  bool executed_comments = false;       ///< /*!…*/ and /*M!…*/ are code
  bool prefixed_texts = false;          ///< E'…', U&'…', U&"…" and $tag$…$tag$
  bool colon_and_at_operators = false;  ///< ":" and "@" mean a parameter only directly before a name
};

/// `unusual` is what one engine alone reads so, and no statement of ours has: E'…', $$…$$, /*!…*/.
enum class TokenKind { word, number, literal, quoted_name, symbol, comment, blank, unusual };

struct Token {
  TokenKind kind;
  std::string_view text;
};

/// The token at the front of `text`, which is not empty. A literal, name or comment without an end runs to the end.
Token next_token(std::string_view text, const Syntax& syntax);

/// True when the token is this word, whatever its case.
bool is(const Token& token, std::string_view word);
bool is_one_of(const Token& token, std::initializer_list<std::string_view> words);
/// A blank or a comment.
bool is_silent(const Token& token);
bool is_name(const Token& token);
/// A name without its quotes.
std::string_view bare_name(const Token& token);

/// The tokens that mean something: blanks and comments left out.
std::vector<Token> tokens_of(std::string_view statement, const Syntax& syntax);

/// The first token that means something, parentheses left out.
Token first_word(std::string_view statement, const Syntax& syntax);

/// True when nothing but blanks, comments and semicolons is left.
bool is_trivia(std::string_view text, const Syntax& syntax);

}  // namespace dorvane
