#include "hosts/vestara/file_source.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "hosts/vestara/failure.h"
#include "hosts/vestara/zip_source.h"

namespace vestara::host {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const {
    if (file != stdin) std::fclose(file);
  }
};

Failure unreadable(const std::string& path) {
  return {ExitCode::file,
          source_name(path) + " cannot be read: " + std::strerror(errno) + "; give a file, or - for standard input"};
}

}  // namespace

std::string source_name(const std::string& path) { return path == standard_input ? "standard input" : path; }

std::string read_source(const std::string& path) {
  const std::unique_ptr<std::FILE, CloseFile> file(path == standard_input ? stdin : std::fopen(path.c_str(), "rb"));
  if (!file) throw unreadable(path);
  std::string bytes;
  std::array<char, 65536> block{};
  while (const size_t count = std::fread(block.data(), 1, block.size(), file.get())) bytes.append(block.data(), count);
  if (std::ferror(file.get()) != 0) throw unreadable(path);
  return is_zip(bytes) ? only_file_of_zip(bytes, source_name(path)) : bytes;
}

}  // namespace vestara::host
