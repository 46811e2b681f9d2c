#include "hosts/cli/programming/class_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "automation/text.h"

namespace vestara::host {
namespace {

ClassFile read_class_file(const std::filesystem::path& file) {
  constexpr std::string_view identifier_key = "identifier=";
  constexpr std::string_view library_key = "library=";
  ClassFile result;
  std::ifstream lines(file);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(identifier_key)) result.identifier = line.substr(identifier_key.size());
    if (line.starts_with(library_key)) result.library = line.substr(library_key.size());
  }
  return result;
}

}  // namespace

std::vector<ClassFile> class_files(automation::Scope scope) {
  std::vector<ClassFile> files;
  std::error_code unreadable;
  for (const auto& entry : std::filesystem::directory_iterator(automation::registration_folder(scope), unreadable)) {
    if (entry.path().extension() != ".class") continue;
    ClassFile file = read_class_file(entry.path());
    if (!file.identifier.empty()) files.push_back(std::move(file));
  }
  std::sort(files.begin(), files.end(), [](const ClassFile& left, const ClassFile& right) {
    return automation::lower_case(left.identifier) < automation::lower_case(right.identifier);
  });
  return files;
}

}  // namespace vestara::host
