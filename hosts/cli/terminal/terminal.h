#pragma once

#include <cstddef>
#include <istream>
#include <ostream>

namespace vestara::host {

enum class ColourChoice { automatic, always, never };

/// True when what is written to the stream goes to a person's screen.
bool is_terminal(const std::ostream& stream);
/// True when what is read from the stream was typed by a person.
bool is_terminal(const std::istream& stream);

/// The width in characters of the terminal behind the stream; 80 when there is none.
size_t terminal_columns(const std::ostream& stream);
/// True on a terminal whose locale writes UTF-8.
bool shows_utf8(const std::ostream& stream);

/// Whether headings are coloured. `automatic` is yes on a terminal, unless NO_COLOR is set or TERM is "dumb".
bool wants_colour(ColourChoice choice, const std::ostream& stream);

}  // namespace vestara::host
