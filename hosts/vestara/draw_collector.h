#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/vestara/draw_row.h"
#include "hosts/vestara/row_reader.h"

namespace vestara::host {

/// A place in a file that holds no usable draw.
struct RejectedRow {
  uint32_t line;  ///< from 1
  std::string reason;
};

/// The draws of a file: sorted, each date and wheel once, all with a contest number.
struct CollectedDraws {
  std::vector<DrawRow> rows;
  std::vector<RejectedRow> rejected;  ///< by line
  size_t read = 0;                    ///< rows of the file, whatever became of them
  size_t repeated = 0;                ///< rows that say again what an earlier one said
};

/// Takes the rows of a file one by one and sees what only the whole shows: repetitions, contradictions, contest
/// numbers.
class DrawCollector {
 public:
  void add(uint32_t line, const RowFields& fields);
  void reject(uint32_t line, std::string reason);
  /// Ends the collection.
  CollectedDraws finish();

 private:
  struct Placed {
    DrawRow row;
    uint32_t line = 0;
  };

  void drop_repeated();

  RowReader reader_;
  std::vector<Placed> placed_;
  CollectedDraws draws_;
};

/// Gives the rows without a contest number the position of their date in its calendar year. Rows sorted by date.
void number_contests(std::vector<DrawRow>& rows);

}  // namespace vestara::host
