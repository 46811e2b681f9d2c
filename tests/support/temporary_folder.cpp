#include "tests/support/temporary_folder.h"

#include <fstream>
#include <iterator>
#include <random>

namespace testing_support {

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    path_ = std::filesystem::temp_directory_path() / ("vestara-test-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryFolder::file(std::string_view name, std::string_view bytes) const {
  const auto path = path_ / name;
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return path.string();
}

std::string bytes_of(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace testing_support
