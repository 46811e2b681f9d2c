#include "vestara/files/system_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "automation/text.h"
#include "vestara/files/draw_formats.h"
#include "vestara/files/file_source.h"
#include "vestara/foundation/combination_lines.h"
#include "vestara/foundation/failure.h"
#include "vestara/foundation/message_text.h"
#include "vestara/foundation/wheel_grid.h"

namespace vestara {
namespace {

constexpr std::string_view separators = ", \t";

std::string_view take_field(std::string_view& rest) {
  rest.remove_prefix(std::min(rest.find_first_not_of(separators), rest.size()));
  const std::string_view field = rest.substr(0, rest.find_first_of(separators));
  rest.remove_prefix(field.size());
  return field;
}

/// 0 for what is no number of the game.
size_t game_number(std::string_view field) {
  size_t number = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
  const bool is_whole = error == std::errc() && end == field.data() + field.size();
  return is_whole && number <= static_cast<size_t>(number_count) ? number : 0;
}

class SystemReader {
 public:
  void read(std::string_view text) {
    while (!text.empty()) {
      ++line_;
      const std::string_view line = take_line(text);
      const std::string_view content = line.substr(0, line.find('#'));
      if (content.find_first_not_of(" \t") != std::string_view::npos) add(content);
    }
  }
  const std::vector<LineNote>& problems() const { return problems_; }
  SystemFile finish() { return std::move(file_); }

 private:
  void add(std::string_view content) {
    std::array<bool, number_count + 1> taken{};
    std::string combination;
    size_t size = 0;
    for (std::string_view field = take_field(content); !field.empty(); field = take_field(content)) {
      const size_t number = game_number(field);
      if (number == 0) problem(shown(field) + " is not one of 1 to 90");
      if (number != 0 && std::exchange(taken.at(number), true)) problem(std::to_string(number) + " comes twice");
      combination.append(size++ == 0 ? "" : ",").append(std::to_string(number));
    }
    if (size == 0) return problem("separators without a number");
    keep(combination, size);
  }

  void keep(const std::string& combination, size_t size) {
    file_.combinations.append(file_.count++ == 0 ? "" : line_break).append(combination);
    file_.size = std::max(file_.size, size);
    if (first_line_ == 0) {
      first_line_ = line_;
      first_size_ = size;
    }
    if (size != first_size_)
      file_.odd_lengths.push_back({line_, counted(size, "number") + ", line " + std::to_string(first_line_) + " has " +
                                              std::to_string(first_size_)});
  }

  void problem(const std::string& text) { problems_.push_back({line_, text}); }

  SystemFile file_;
  std::vector<LineNote> problems_;
  size_t line_ = 0;
  size_t first_line_ = 0;
  size_t first_size_ = 0;
};

}  // namespace

std::string listed_notes(const std::vector<LineNote>& notes) {
  std::string text;
  for (size_t i = 0; i < std::min(notes.size(), most_named); ++i)
    text += "\n  line " + std::to_string(notes[i].line) + ": " + notes[i].text;
  if (notes.size() > most_named) text += "\n  and " + std::to_string(notes.size() - most_named) + " more";
  return text;
}

SystemFile parse_system_file(std::string_view text, const std::string& name) {
  constexpr std::string_view right = "; a line is a combination, different numbers of 1 to 90";
  SystemReader reader;
  reader.read(without_mark(text));
  const auto& problems = reader.problems();
  if (!problems.empty())
    throw Failure(FailureKind::file,
                  name + " has " + counted(problems.size(), "problem") + std::string(right) + listed_notes(problems));
  SystemFile file = reader.finish();
  if (file.count == 0) throw Failure(FailureKind::file, name + " holds no combinations" + std::string(right));
  return file;
}

SystemFile read_system_file(const std::string& path) { return parse_system_file(read_source(path), source_name(path)); }

}  // namespace vestara
