#include "automation/registration.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "automation/error.h"
#include "automation/registry.h"
#include "automation/shared_object.h"
#include "automation/text.h"

namespace automation {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view library_prefix = "lib";
constexpr std::string_view library_suffix = ".so.1";
constexpr std::string_view class_folder = "automation-classes";
constexpr std::string_view library_key = "library=";

std::string environment(const char* name, std::string otherwise = {}) {
  const char* value = std::getenv(name);
  return value && *value ? std::string(value) : std::move(otherwise);
}

std::string user_data_folder() { return environment("XDG_DATA_HOME", environment("HOME", ".") + "/.local/share"); }

std::vector<fs::path> class_folders() {
  std::vector<fs::path> folders;
  const std::string path = environment("AUTOMATION_CLASS_PATH");
  for (const std::string_view folder : split(path, ':')) folders.emplace_back(folder);
  folders.push_back(fs::path(user_data_folder()) / class_folder);
  const std::string shared = environment("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
  for (const std::string_view folder : split(shared, ':')) folders.push_back(fs::path(folder) / class_folder);
  return folders;
}

fs::path class_file(const fs::path& folder, std::string_view identifier) {
  return folder / (lower_case(identifier) + ".class");
}

std::optional<std::string> registered_library(const fs::path& file) {
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);)
    if (line.starts_with(library_key)) return line.substr(library_key.size());
  return std::nullopt;
}

/// The library that holds the classes of "Vestara.cLotto" by its own name: libvestara.
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

std::vector<std::string> classes_of(const std::string& library) {
  std::vector<std::string> identifiers;
  for (const RegisteredClass& entry : loaded_classes())
    if (shared_object_path(reinterpret_cast<const void*>(entry.create)) == library)
      identifiers.push_back(entry.identifier);
  return identifiers;
}

void write_class_file(const fs::path& file, const std::string& identifier, const std::string& library) {
  const fs::path unfinished = file.string() + ".new";
  {
    std::ofstream out(unfinished);
    out << "identifier=" << identifier << "\n" << library_key << library << "\n";
    if (!out.flush()) throw RunTimeError(75, "cannot write " + unfinished.string());
  }
  std::error_code error;
  fs::rename(unfinished, file, error);
  if (error) throw RunTimeError(75, "cannot write " + file.string() + ": " + error.message());
}

}  // namespace

std::string registration_folder(Scope scope) {
  const std::string data = scope == Scope::user ? user_data_folder() : "/usr/local/share";
  return (fs::path(data) / class_folder).string();
}

std::vector<std::string> libraries_for(std::string_view identifier) {
  std::vector<std::string> libraries;
  if (!is_identifier(identifier)) return libraries;
  const auto add = [&](const fs::path& library) {
    std::error_code ignored;
    if (library.is_absolute() && fs::exists(library, ignored)) libraries.push_back(library.string());
  };
  if (const std::string folder = environment("VESTARA_LIBRARY_DIR"); !folder.empty())
    add(fs::absolute(folder) / library_file(identifier));
  for (const fs::path& folder : class_folders())
    if (const auto library = registered_library(class_file(folder, identifier))) add(*library);
  add(fs::absolute(own_folder()) / library_file(identifier));
  return libraries;
}

std::string searched_places() {
  std::string places;
  if (const std::string folder = environment("VESTARA_LIBRARY_DIR"); !folder.empty()) places = folder + ", ";
  for (const fs::path& folder : class_folders()) places += folder.string() + ", ";
  return places + own_folder();
}

std::vector<std::string> register_library(const void* address, Scope scope) {
  const std::string path = shared_object_path(address);
  const std::string library = fs::absolute(path).lexically_normal().string();
  const fs::path folder = registration_folder(scope);
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw RunTimeError(76, "cannot create " + folder.string() + ": " + error.message());
  auto identifiers = classes_of(path);
  for (const std::string& identifier : identifiers)
    write_class_file(class_file(folder, identifier), identifier, library);
  return identifiers;
}

std::vector<std::string> unregister_library(const void* address, Scope scope) {
  const fs::path folder = registration_folder(scope);
  auto identifiers = classes_of(shared_object_path(address));
  for (const std::string& identifier : identifiers) {
    std::error_code error;
    fs::remove(class_file(folder, identifier), error);
    if (error)
      throw RunTimeError(75, "cannot remove " + class_file(folder, identifier).string() + ": " + error.message());
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
