#pragma once

#include <cstdint>
#include <ostream>
#include <string>

namespace vestara::host {

/// "import [####      ] 40%" on a terminal, nothing elsewhere. Leaves an empty line behind.
class ProgressBar {
 public:
  ProgressBar(std::ostream& err, std::string what);
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();

  bool is_shown() const { return is_shown_; }
  /// `count` is above 0.
  void show(uint64_t position, uint64_t count);

 private:
  std::ostream& err_;
  std::string what_;
  bool is_shown_;
  int32_t percent_ = -1;
};

}  // namespace vestara::host
