#include "vestara/draws/group_scan.h"
#include "vestara/study/figures.h"

namespace vestara::study {
namespace {

/// The draws that hold enough of the numbers, oldest first, each once.
std::vector<int32_t> occurrences_of(const DrawSequence& sequence, const GapQuestion& question) {
  std::vector<int32_t> draws;
  each_hit(sequence, mask_of(question.numbers), question.hits, [&](int32_t draw) {
    if (draws.empty() || draws.back() != draw) draws.push_back(draw);
  });
  return draws;
}

void append_gaps(const DrawSequence& sequence, const std::vector<int32_t>& occurred, std::vector<Gap>& rows) {
  const auto date = [&](int32_t draw) { return automation::Date::from_day(sequence.day(draw)); };
  if (occurred.empty()) return;
  const int32_t newest = sequence.draws() - 1;
  rows.push_back({sequence.name(), date(occurred.back()), std::nullopt, newest - occurred.back(), std::nullopt});
  for (size_t i = occurred.size() - 1; i > 0; --i) {
    const int32_t from = occurred[i - 1];
    const int32_t to = occurred[i];
    rows.push_back({sequence.name(), date(from), date(to), to - from, sequence.day(to) - sequence.day(from)});
  }
}

}  // namespace

std::vector<Gap> gaps_of(const Draws& draws, const GapQuestion& question) {
  std::vector<Gap> rows;
  for (const DrawSequence& sequence :
       draw_sequences(draws, question.selection.wheels, question.selection.period, question.view))
    append_gaps(sequence, occurrences_of(sequence, question), rows);
  return rows;
}

}  // namespace vestara::study
