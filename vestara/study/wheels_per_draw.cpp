#include "vestara/study/wheels_per_draw.h"

#include <algorithm>
#include <string>

#include "vestara/statistics/statistics.h"

namespace vestara {
namespace {

WheelsPerDraw::Draws read_draws(const Archive& archive, const DrawRange& range) {
  std::string condition = range_condition(range);
  condition += condition.empty() ? " WHERE " : " AND ";
  auto rows = archive.rows(
      "SELECT ruote,count(*) AS estrazioni FROM (SELECT count(DISTINCT ruota) AS ruote FROM storico" + condition +
      "dtEstr IS NOT NULL AND estr1>0 AND estr2>0 AND estr3>0 AND estr4>0 AND estr5>0 GROUP BY dtEstr,concorsoNumero) "
      "AS x GROUP BY ruote");
  WheelsPerDraw::Draws draws{};
  for (; !rows->at_end(); rows->move_next()) {
    const auto wheels = std::clamp<int32_t>(rows->whole_number(Column{0}), 0, wheel_count);
    draws.at(static_cast<size_t>(wheels)) += rows->whole_number(Column{1});
  }
  archive.connector()->CloseRecordset(rows);
  return draws;
}

}  // namespace

WheelsPerDraw::WheelsPerDraw(const Archive& archive, const DrawRange& range)
    : WheelsPerDraw(read_draws(archive, range)) {}

int64_t WheelsPerDraw::draws() const {
  int64_t draws = 0;
  for (size_t wheels = 1; wheels < draws_.size(); ++wheels) draws += draws_.at(wheels);
  return draws;
}

int64_t WheelsPerDraw::wheels() const {
  int64_t drawn = 0;
  for (size_t wheels = 1; wheels < draws_.size(); ++wheels) drawn += static_cast<int64_t>(wheels) * draws_.at(wheels);
  return drawn;
}

double WheelsPerDraw::expected_hits(int16_t numbers, int16_t hits) const {
  constexpr double percent = 100;
  cStatistiche statistics;
  double expected = 0;
  for (size_t wheels = 1; wheels < draws_.size(); ++wheels)
    if (draws_.at(wheels) != 0)
      expected += static_cast<double>(draws_.at(wheels)) *
                  statistics.CalcolaPercTeorica(numbers, hits, static_cast<int16_t>(wheels)) / percent;
  return expected;
}

}  // namespace vestara
