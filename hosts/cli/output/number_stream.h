#pragma once

#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include "hosts/cli/output/output.h"

namespace vestara::host {

/// Writes a result whose listing has more rows than memory should hold. All its cells are whole numbers, and the
/// output is what write_report would make of it. Whole rows go out together, so that what was written when somebody
/// stops it ends with a line; a JSON array is then left open and cannot be taken for the whole.
class NumberStream {
 public:
  /// `head` is the result without its rows, `widest` the widest cell that will come.
  NumberStream(std::ostream& out, const Report& head, const OutputStyle& style, int32_t widest);

  /// False when the output takes no more.
  bool add(std::span<const int32_t> row);
  /// Ends the listing. Without it the last rows may be missing.
  void finish();
  /// Ends it where it stands, with the line of the last row.
  void break_off();

 private:
  /// What stands around the numbers of a row.
  struct Shape {
    std::string first;               ///< before the first row
    std::string next;                ///< before each other one
    std::vector<std::string> leads;  ///< before each number
    std::vector<size_t> widths;      ///< that numbers are padded to, 0 for none
    std::string end;
  };

  void flush();
  void begin_table(const Report& head, const OutputStyle& style, int32_t widest);
  void begin_csv(const Report& head);
  void begin_markdown(const Report& head);
  void begin_json(const Report& head);
  void begin_json_lines(const Report& head);

  std::ostream& out_;
  Shape shape_;
  std::string block_;
  std::string last_;        ///< after the last row
  std::string last_empty_;  ///< the same when there was none
  bool is_empty_ = true;
};

}  // namespace vestara::host
