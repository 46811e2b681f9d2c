#include "hosts/vestara/import_progress.h"

#include <span>
#include <string>

#include "automation/coercion.h"
#include "automation/member.h"
#include "hosts/vestara/terminal.h"

namespace vestara::host {

ImportProgress::ImportProgress(cLotto& lotto, std::ostream& err) : lotto_(lotto), err_(err) {
  if (!is_terminal(err)) return;
  cookie_ = lotto_.events().connect([this](const automation::Event& event, std::span<const automation::Variant> given) {
    if (event.name == "LoadingProgress") show(automation::to_long(given[0]), automation::to_long(given[1]));
  });
}

ImportProgress::~ImportProgress() {
  if (cookie_ == 0) return;
  lotto_.events().disconnect(cookie_);
  err_ << "\r\033[K" << std::flush;
}

void ImportProgress::show(int32_t position, int32_t count) {
  constexpr int32_t whole = 100;
  constexpr int32_t width = 40;
  const auto percent = static_cast<int32_t>(int64_t{whole} * position / count);
  if (percent == percent_) return;
  percent_ = percent;
  const auto filled = static_cast<size_t>(width * percent / whole);
  err_ << "\rimport [" << std::string(filled, '#') << std::string(width - filled, ' ') << "] " << percent << "%"
       << std::flush;
}

}  // namespace vestara::host
