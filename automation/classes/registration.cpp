#include "automation/registration.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "automation/classes/class_file_trust.h"
#include "automation/classes/product.h"
#include "automation/error.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "automation/system/shared_object.h"
#include "automation/text.h"

namespace automation {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view library_prefix = "lib";
constexpr std::string_view library_suffix = ".so.1";
constexpr std::string_view class_folder = "automation-classes";
constexpr std::string_view library_key = "library=";
// Whatever the process's own mask says: only the owner writes, everybody reads.
constexpr auto private_file = static_cast<fs::perms>(0644);
constexpr auto private_folder = static_cast<fs::perms>(0755);

std::string environment(const char* name, std::string otherwise = {}) {
  const char* value = std::getenv(name);
  return value && *value ? std::string(value) : std::move(otherwise);
}

/// The absolute paths of a list joined by ":". Others depend on the folder where a program happens to be started.
std::vector<fs::path> absolute_folders(std::string_view list) {
  std::vector<fs::path> folders;
  for (const std::string_view item : split(list, ':'))
    if (fs::path folder(item); folder.is_absolute()) folders.push_back(std::move(folder));
  return folders;
}

/// Nothing when no variable names one.
std::optional<fs::path> user_data_folder() {
  if (fs::path data = environment("XDG_DATA_HOME"); data.is_absolute()) return data;
  if (const fs::path home = environment("HOME"); home.is_absolute()) return home / ".local/share";
  return std::nullopt;
}

std::vector<fs::path> class_folders() {
  std::vector<fs::path> folders = absolute_folders(environment("AUTOMATION_CLASS_PATH"));
  if (const auto data = user_data_folder()) folders.push_back(*data / class_folder);
  constexpr const char* usual = "/usr/local/share:/usr/share";
  auto shared = absolute_folders(environment("XDG_DATA_DIRS", usual));
  if (shared.empty()) shared = absolute_folders(usual);
  for (const fs::path& folder : shared) folders.push_back(folder / class_folder);
  return folders;
}

fs::path class_file(const fs::path& folder, std::string_view identifier) {
  return folder / (lower_case(identifier) + ".class");
}

/// The library that a class file names; nothing when there is no such file or it is refused.
std::optional<std::string> registered_library(const fs::path& file) {
  if (!why_refused(file).empty()) return std::nullopt;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with(library_key)) return line.substr(library_key.size());
  return std::nullopt;
}

/// The library that holds "Library.Reader" by its own name: liblibrary.
std::string library_file(std::string_view identifier) {
  const std::string library = lower_case(identifier.substr(0, identifier.find('.')));
  return std::string(library_prefix) + library + std::string(library_suffix);
}

std::string own_folder() { return shared_object_folder(reinterpret_cast<const void*>(&libraries_for)); }

/// Identifiers name files: letters, digits and points only.
bool is_identifier(std::string_view text) {
  constexpr std::string_view allowed = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_.";
  return !text.empty() && text.front() != '.' && text.find_first_not_of(allowed) == std::string_view::npos;
}

fs::path known_registration_folder(Scope scope) {
  if (fs::path folder = registration_folder(scope); !folder.empty()) return folder;
  throw path_not_found("no folder for class files: XDG_DATA_HOME or HOME must name an absolute path");
}

/// The registration folder, made when it is not there yet. Error 70 when others may write there.
fs::path make_registration_folder(Scope scope) {
  fs::path folder = known_registration_folder(scope);
  std::error_code error;
  if (fs::create_directories(folder, error)) fs::permissions(folder, private_folder, error);
  if (error) throw path_not_found("cannot create " + folder.string() + ": " + error.message());
  if (const std::string reason = why_untrusted(folder); !reason.empty()) throw permission_denied(reason);
  return folder;
}

std::vector<std::string> classes_of(const std::string& library) {
  std::vector<std::string> identifiers;
  for (const RegisteredClass& entry : loaded_classes())
    if (shared_object_path(reinterpret_cast<const void*>(entry.create)) == library)
      identifiers.push_back(entry.description->identifier());
  return identifiers;
}

void write_class_file(const fs::path& file, const std::string& identifier, const std::string& library) {
  const fs::path unfinished = file.string() + ".new";
  {
    std::ofstream out(unfinished);
    out << "identifier=" << identifier << "\n" << library_key << library << "\n";
    if (!out.flush()) throw path_file_access("cannot write " + unfinished.string());
  }
  std::error_code error;
  fs::permissions(unfinished, private_file, error);
  if (!error) fs::rename(unfinished, file, error);
  if (error) throw path_file_access("cannot write " + file.string() + ": " + error.message());
}

}  // namespace

std::string registration_folder(Scope scope) {
  const auto data = scope == Scope::user ? user_data_folder() : fs::path("/usr/local/share");
  return data ? (*data / class_folder).string() : std::string();
}

std::vector<std::string> libraries_for(std::string_view identifier) {
  std::vector<std::string> libraries;
  if (!is_identifier(identifier)) return libraries;
  const auto add = [&](const fs::path& library) {
    std::error_code ignored;
    if (library.is_absolute() && fs::exists(library, ignored)) libraries.push_back(library.string());
  };
  if (const std::string folder = environment(product().library_folder); !folder.empty())
    add(fs::absolute(folder) / library_file(identifier));
  for (const fs::path& folder : class_folders())
    if (const auto library = registered_library(class_file(folder, identifier))) add(*library);
  add(fs::absolute(own_folder()) / library_file(identifier));
  return libraries;
}

std::string searched_places() {
  std::string places;
  if (const std::string folder = environment(product().library_folder); !folder.empty()) places = folder + ", ";
  for (const fs::path& folder : class_folders()) places += folder.string() + ", ";
  return places + own_folder();
}

std::vector<std::string> refused_class_files(std::string_view identifier) {
  std::vector<std::string> sentences;
  if (!is_identifier(identifier)) return sentences;
  for (const fs::path& folder : class_folders())
    if (std::string reason = why_refused(class_file(folder, identifier)); !reason.empty())
      sentences.push_back(std::move(reason));
  return sentences;
}

std::vector<std::string> register_library(const void* address, Scope scope) {
  const std::string path = shared_object_path(address);
  const std::string library = fs::absolute(path).lexically_normal().string();
  const fs::path folder = make_registration_folder(scope);
  auto identifiers = classes_of(path);
  for (const std::string& identifier : identifiers)
    write_class_file(class_file(folder, identifier), identifier, library);
  return identifiers;
}

std::vector<std::string> unregister_library(const void* address, Scope scope) {
  const fs::path folder = known_registration_folder(scope);
  auto identifiers = classes_of(shared_object_path(address));
  for (const std::string& identifier : identifiers) {
    std::error_code error;
    fs::remove(class_file(folder, identifier), error);
    if (error)
      throw path_file_access("cannot remove " + class_file(folder, identifier).string() + ": " + error.message());
  }
  return identifiers;
}

int32_t register_from_entry_point(const void* address, Scope scope, Registering what) noexcept {
  try {
    what == Registering::write ? register_library(address, scope) : unregister_library(address, scope);
    return 0;
  } catch (const RunTimeError& error) {
    return error.number();
  } catch (const std::exception&) {
    return unspecified_failure;
  }
}

}  // namespace automation
