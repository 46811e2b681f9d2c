#include "vestara/foundation/error_log.h"

#include <cstdio>
#include <exception>
#include <utility>

#include "automation/date.h"
#include "automation/file.h"
#include "automation/shared_object.h"
#include "automation/text.h"

namespace vestara {
namespace {

#if defined(_WIN32)
constexpr const char* log_name = "\\ErrVestara.log";
#else
constexpr const char* log_name = "/ErrVestara.log";
#endif

std::string& chosen_folder() {
  static std::string folder;
  return folder;
}

std::string clock_text() {
  const automation::Date moment = automation::now();
  std::string text = automation::date_to_text(moment);
  // Midnight has a time here as well.
  if (!moment.has_time()) text += " 00:00:00";
  return text;
}

std::string entry_text(const std::string& label, const automation::RunTimeError& error) {
  // No blank between the time and the hyphen: kept on purpose, readers of the log look for it.
  return clock_text() + "- Procedura: " + label + "\r\nDesc.: " + error.description() +
         "\r\nErrore N.: " + std::to_string(error.number());
}

void append(const std::string& path, const std::string& bytes) {
  std::FILE* file = automation::open_file(path, "ab");
  if (!file) return;
  // Without a buffer of its own the stream hands the whole entry over in one write.
  std::setvbuf(file, nullptr, _IONBF, 0);
  std::fwrite(bytes.data(), 1, bytes.size(), file);
  std::fclose(file);
}

}  // namespace

void set_log_folder(std::string folder) { chosen_folder() = std::move(folder); }

std::string log_path() {
  if (!chosen_folder().empty()) return chosen_folder() + log_name;
  const std::string environment = automation::environment_variable("VESTARA_LOG_DIR");
  if (!environment.empty()) return environment + log_name;
  return automation::shared_object_folder(reinterpret_cast<const void*>(&log_path)) + log_name;
}

void WriteErrLog(std::string& label, const automation::RunTimeError& error) noexcept {
  try {
    label = entry_text(label, error);
    append(log_path(), automation::to_code_page_1252("\r\n" + label + "\r\n"));
  } catch (const std::exception&) {
    return;  // no memory for the entry: it is lost, the caller goes on
  }
}

}  // namespace vestara
