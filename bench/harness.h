#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

// Two ways of the same work, run in turn in one process, so that a machine whose speed drifts slows both.

namespace bench {

inline double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

inline double milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// Prints one line: medians of both and of the ratios ours/bare, pair by pair, beside the goal.
inline void compare(const std::string& workload, double goal, const std::function<void()>& bare,
                    const std::function<void()>& ours, int rounds = 15) {
  bare();
  ours();
  std::vector<double> bare_times;
  std::vector<double> our_times;
  std::vector<double> ratios;
  for (int i = 0; i < rounds; ++i) {
    bare_times.push_back(milliseconds(bare));
    our_times.push_back(milliseconds(ours));
    ratios.push_back(our_times.back() / bare_times.back());
  }
  const double ratio = median(ratios);
  std::printf("%-44s bare %9.3f ms   vestara %9.3f ms   ratio %5.2f   goal %4.2f %s\n", workload.c_str(),
              median(bare_times), median(our_times), ratio, goal, ratio <= goal ? "" : "  MISSED");
  std::fflush(stdout);
}

}  // namespace bench
