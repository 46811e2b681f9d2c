#include "vestara/foundation/error_log.h"

#include <exception>
#include <filesystem>
#include <utility>

#include "automation/report.h"
#include "automation/system/append_file.h"
#include "automation/system/file.h"
#include "automation/system/process_wide.h"
#include "automation/system/shared_object.h"
#include "automation/text.h"
#include "automation/text/shown_text.h"

namespace vestara {
namespace {

#if defined(_WIN32)
constexpr const char* log_name = "\\ErrVestara.log";
#else
constexpr const char* log_name = "/ErrVestara.log";
#endif

constexpr int64_t largest_log = int64_t{4} << 20U;
constexpr size_t longest_label = 200;
constexpr size_t longest_description = 2000;

/// Never destroyed: errors of other threads may still be logged while the process ends.
automation::ProcessWide<std::string>& chosen_folder() {
  // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables)
  static auto* const folder = new automation::ProcessWide<std::string>;
  return *folder;
}

std::string clock_text(automation::Date moment) {
  std::string text = automation::date_to_text(moment);
  // Midnight has a time here as well.
  if (!moment.has_time()) text += " 00:00:00";
  return text;
}

/// A path that is UTF-8.
std::filesystem::path path_of(const std::string& text) { return std::u8string(text.begin(), text.end()); }

/// `below` in the folder that a variable of the environment names; empty when that is no absolute path.
std::string folder_below(const char* variable, const char* below) {
  const std::string named = automation::environment_variable(variable);
  return path_of(named).is_absolute() ? named + below : std::string();
}

/// The state folder is this library's own: it is made when it is missing.
void make_state_folder(const std::string& path) {
  const std::string folder = state_folder();
  if (folder.empty() || path != folder + log_name) return;
  std::error_code ignored;  // a log without a folder is lost
  std::filesystem::create_directories(path_of(folder), ignored);
}

/// What other libraries report goes to this log, as long as this library is loaded.
class Listener {
 public:
  Listener() {
    automation::set_report_hook([](std::string_view label, const automation::RunTimeError& error) {
      std::string entry(label);
      WriteErrLog(entry, error);
    });
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() { automation::set_report_hook(nullptr); }
};
const Listener listener;

}  // namespace

void set_log_folder(std::string folder) { chosen_folder().exchange(std::move(folder)); }

std::string state_folder() {
#if defined(_WIN32)
  return folder_below("LOCALAPPDATA", "\\vestara");
#else
  const std::string folder = folder_below("XDG_STATE_HOME", "/vestara");
  return folder.empty() ? folder_below("HOME", "/.local/state/vestara") : folder;
#endif
}

std::string log_path() {
  if (const std::string chosen = chosen_folder().get(); !chosen.empty()) return chosen + log_name;
  if (const std::string named = automation::environment_variable("VESTARA_LOG_DIR"); !named.empty())
    return named + log_name;
  return writable_log(automation::shared_object_folder(reinterpret_cast<const void*>(&log_path)));
}

std::string writable_log(const std::string& folder) {
  const std::string usual = folder + log_name;
  const std::string state = state_folder();
  return state.empty() || automation::can_append(usual) ? usual : state + log_name;
}

std::string log_entry(std::string_view label, const automation::RunTimeError& error, automation::Date moment) {
  // No blank between the time and the hyphen: kept on purpose, readers of the log look for it.
  return clock_text(moment) + "- Procedura: " + automation::shown_text(label, longest_label) +
         "\r\nDesc.: " + automation::shown_text(error.description(), longest_description) +
         "\r\nErrore N.: " + std::to_string(error.number());
}

void WriteErrLog(std::string& label, const automation::RunTimeError& error) noexcept {
  try {
    label = log_entry(label, error, automation::now());
    const std::string path = log_path();
    make_state_folder(path);
    automation::append_to_file(path, automation::to_code_page_1252("\r\n" + label + "\r\n"), largest_log);
  } catch (const std::exception&) {
    return;  // no memory for the entry: it is lost, the caller goes on
  }
}

}  // namespace vestara
