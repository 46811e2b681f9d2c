#include "hosts/cli/terminal/progress_bar.h"

#include <utility>

#include "hosts/cli/terminal/terminal.h"

namespace vestara::host {

ProgressBar::ProgressBar(std::ostream& err, std::string what)
    : err_(err), what_(std::move(what)), is_shown_(is_terminal(err)) {}

ProgressBar::~ProgressBar() {
  if (is_shown_) err_ << "\r\033[K" << std::flush;
}

void ProgressBar::show(uint64_t position, uint64_t count) {
  if (!is_shown_) return;
  constexpr int32_t whole = 100;
  constexpr int32_t width = 40;
  const auto percent = static_cast<int32_t>(whole * (static_cast<double>(position) / static_cast<double>(count)));
  if (percent == percent_) return;
  percent_ = percent;
  const auto filled = static_cast<size_t>(width * percent / whole);
  err_ << "\r" << what_ << " [" << std::string(filled, '#') << std::string(width - filled, ' ') << "] " << percent
       << "%" << std::flush;
}

}  // namespace vestara::host
