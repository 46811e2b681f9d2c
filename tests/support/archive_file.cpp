#include "tests/support/archive_file.h"

#include <fstream>

#include "automation/text.h"

namespace testing_support {

Archive archive_in_file(const std::string& path) {
  Archive archive;
  std::ifstream file(path);
  std::string line;
  std::string newest;
  int32_t contest = 0;
  std::getline(file, line);
  while (std::getline(file, line)) {
    const auto fields = automation::split(line, ',');
    const std::string day(fields.at(0));
    if (day.substr(0, 4) != newest.substr(0, 4)) contest = 0;
    if (day != newest) ++contest;
    newest = day;
    ArchiveRow row{automation::parse_iso(day).value(), contest, std::string(fields.at(1)), {}};
    for (size_t i = 0; i < 5; ++i) row.numbers.at(i) = std::stoi(std::string(fields.at(i + 2)));
    archive.push_back(row);
  }
  return archive;
}

}  // namespace testing_support
