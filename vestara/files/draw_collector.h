#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "vestara/draws/draw_row.h"
#include "vestara/files/row_reader.h"

namespace vestara {

/// A place in a file that holds no usable draw.
struct RejectedRow {
  uint32_t line;  ///< from 1
  std::string reason;
};

/// Counts such places; keeps the first twenty, so that a file of nothing else takes no memory.
class RejectedRows {
 public:
  void add(uint32_t line, std::string reason);

  bool empty() const { return count_ == 0; }
  size_t count() const { return count_; }
  /// By line.
  const std::vector<RejectedRow>& first() const { return first_; }

 private:
  size_t count_ = 0;
  std::vector<RejectedRow> first_;
};

/// The draws of a file: sorted, each date and wheel once. The contest number is 0 where the file has none.
struct CollectedDraws {
  std::vector<DrawRow> rows;
  RejectedRows rejected;
  size_t read = 0;      ///< rows of the file, whatever became of them
  size_t repeated = 0;  ///< rows that say again what an earlier one said
};

/// Takes the rows of a file one by one and sees what only the whole shows: repetitions and contradictions.
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

}  // namespace vestara
