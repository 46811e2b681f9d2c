#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <vector>

#include "vestara/draws/loaded_draws.h"

// The figures of Study as somebody would write them for one evening: loops over an array of rows, no library.

namespace bench {

struct PlainRow {
  int32_t day;
  int32_t wheel;
  std::array<uint8_t, 5> sorted;
  uint64_t low, high;
};

struct PlainCell {
  int32_t times = 0, last = -1, record = 0, first = 0;
  void see(int32_t draw) {
    if (const int32_t gap = draw - last - 1; gap > record) record = gap, first = last + 1;
    last = draw;
    ++times;
  }
};

inline std::vector<PlainRow> plain_rows(const vestara::LoadedDraws& draws) {
  std::vector<PlainRow> rows;
  for (int32_t wheel = 1; wheel <= 11; ++wheel) {
    const auto range = draws.rows_of(wheel, {}, {});
    for (size_t row = range.first; row < range.end; ++row) {
      PlainRow plain{draws.day(row), wheel, draws.numbers(row), draws.mask(row).low, draws.mask(row).high};
      std::sort(plain.sorted.begin(), plain.sorted.end());
      rows.push_back(plain);
    }
  }
  return rows;
}

/// The largest of something over all cells, so that nothing is left out by the compiler.
inline int32_t largest_record(const std::vector<PlainCell>& cells) {
  int32_t largest = 0;
  for (const PlainCell& cell : cells) largest = std::max(largest, cell.record + (cell.times > 1000000 ? 1 : 0));
  return largest;
}

/// Calls `see(cells, row, draw)` for the rows of each wheel, with cells of its own.
template <class See>
int32_t plain_scan(const std::vector<PlainRow>& rows, size_t cell_count, See see) {
  int32_t largest = 0;
  std::vector<PlainCell> cells(cell_count);
  int32_t draw = 0;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (i > 0 && rows[i].wheel != rows[i - 1].wheel) {
      for (PlainCell& cell : cells) cell.see(draw);
      largest = std::max(largest, largest_record(cells));
      std::fill(cells.begin(), cells.end(), PlainCell{});
      draw = 0;
    }
    see(cells, rows[i], draw++);
  }
  for (PlainCell& cell : cells) cell.see(draw);
  return std::max(largest, largest_record(cells));
}

inline int32_t plain_numbers(const std::vector<PlainRow>& rows) {
  return plain_scan(rows, 90, [](auto& cells, const PlainRow& row, int32_t draw) {
    for (const uint8_t number : row.sorted) cells[number - 1U].see(draw);
  });
}

inline int32_t plain_pairs(const std::vector<PlainRow>& rows) {
  static const auto place_of = [] {
    std::vector<int32_t> places(size_t{91} * 91);
    int32_t next = 0;
    for (size_t a = 1; a <= 90; ++a)
      for (size_t b = a + 1; b <= 90; ++b) places[a * 91 + b] = next++;
    return places;
  }();
  return plain_scan(rows, 4005, [](auto& cells, const PlainRow& row, int32_t draw) {
    for (size_t i = 0; i < 5; ++i)
      for (size_t j = i + 1; j < 5; ++j)
        cells[static_cast<size_t>(place_of[row.sorted[i] * size_t{91} + row.sorted[j]])].see(draw);
  });
}

inline int32_t plain_triples(const std::vector<PlainRow>& rows) {
  static const auto place_of = [] {
    std::vector<int32_t> places(size_t{91} * 91 * 91);
    int32_t next = 0;
    for (size_t a = 1; a <= 90; ++a)
      for (size_t b = a + 1; b <= 90; ++b)
        for (size_t c = b + 1; c <= 90; ++c) places[(a * 91 + b) * 91 + c] = next++;
    return places;
  }();
  return plain_scan(rows, 117480, [](auto& cells, const PlainRow& row, int32_t draw) {
    for (size_t i = 0; i < 5; ++i)
      for (size_t j = i + 1; j < 5; ++j)
        for (size_t k = j + 1; k < 5; ++k) {
          const size_t place = (row.sorted[i] * size_t{91} + row.sorted[j]) * 91 + row.sorted[k];
          cells[static_cast<size_t>(place_of[place])].see(draw);
        }
  });
}

/// Groups of four: what occurred, sorted.
inline int32_t plain_fours(const std::vector<PlainRow>& rows) {
  int32_t largest = 0;
  std::vector<uint64_t> seen;
  const auto finish = [&](int32_t draws) {
    std::sort(seen.begin(), seen.end());
    for (size_t i = 0; i < seen.size();) {
      PlainCell cell;
      const uint64_t group = seen[i] >> 32U;
      for (; i < seen.size() && seen[i] >> 32U == group; ++i) cell.see(static_cast<int32_t>(seen[i] & 0xFFFFFFFFU));
      cell.see(draws);
      largest = std::max(largest, cell.record);
    }
    seen.clear();
  };
  int32_t draw = 0;
  for (size_t i = 0; i < rows.size(); ++i) {
    if (i > 0 && rows[i].wheel != rows[i - 1].wheel) finish(draw), draw = 0;
    for (size_t out = 0; out < 5; ++out) {
      uint64_t group = 0;
      for (size_t k = 0; k < 5; ++k)
        if (k != out) group = group << 7U | rows[i].sorted[k];
      seen.push_back(group << 32U | static_cast<uint32_t>(draw));
    }
    ++draw;
  }
  finish(draw);
  return largest;
}

struct PlainFind {
  const PlainRow* row;
  std::vector<uint8_t> numbers;
};

/// Rows that hold two of ten numbers, with what they hold, newest first.
inline std::vector<PlainFind> plain_search(const std::vector<PlainRow>& rows, uint64_t low, uint64_t high) {
  std::vector<PlainFind> found;
  for (const PlainRow& row : rows) {
    if (std::popcount(row.low & low) + std::popcount(row.high & high) < 2) continue;
    PlainFind& find = found.emplace_back(PlainFind{&row, {}});
    for (const uint8_t number : row.sorted)
      if ((number <= 64 ? low >> (number - 1U) : high >> (number - 65U)) & 1U) find.numbers.push_back(number);
  }
  std::sort(found.begin(), found.end(), [](const PlainFind& left, const PlainFind& right) {
    return left.row->day != right.row->day ? left.row->day > right.row->day : left.row->wheel < right.row->wheel;
  });
  return found;
}

}  // namespace bench
