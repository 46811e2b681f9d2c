#include "tests/support/log_capture.h"

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "vestara/foundation/error_log.h"

namespace testing_support {

namespace {

/// What stands before `mark`; `rest` goes on behind it.
std::optional<std::string> up_to(std::string_view& rest, std::string_view mark) {
  const auto end = rest.find(mark);
  if (end == std::string_view::npos) return {};
  std::string result(rest.substr(0, end));
  rest.remove_prefix(end + mark.size());
  return result;
}

std::optional<LogEntry> next_entry(std::string_view& rest) {
  const auto before = up_to(rest, "\r\n");
  const auto time = up_to(rest, "- Procedura: ");
  const auto label = up_to(rest, "\r\nDesc.: ");
  const auto description = up_to(rest, "\r\nErrore N.: ");
  const auto number = up_to(rest, "\r\n");
  if (!before || !before->empty() || !time || !label || !description || !number) return {};
  return LogEntry{*time, *label, *description, std::stoi(*number)};
}

}  // namespace

LogCapture::LogCapture() { vestara::set_log_folder(folder()); }
LogCapture::~LogCapture() { vestara::set_log_folder({}); }

std::string LogCapture::bytes() const { return bytes_of(folder_.path() / "ErrVestara.log"); }

std::vector<LogEntry> LogCapture::entries() const {
  const std::string all = bytes();
  std::vector<LogEntry> result;
  for (std::string_view rest = all; !rest.empty();) {
    auto entry = next_entry(rest);
    if (!entry) {
      ADD_FAILURE() << "not an entry of the error log: " << testing::PrintToString(all);
      break;
    }
    result.push_back(std::move(*entry));
  }
  return result;
}

std::vector<std::string> LogCapture::take() {
  std::vector<std::string> result;
  for (const auto& entry : entries()) result.push_back(entry.label + " " + std::to_string(entry.number));
  std::filesystem::remove(folder_.path() / "ErrVestara.log");
  return result;
}

}  // namespace testing_support
