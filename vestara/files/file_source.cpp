#include "vestara/files/file_source.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>

#include "vestara/files/gzip_source.h"
#include "vestara/files/system_reason.h"
#include "vestara/files/zip_source.h"

namespace vestara {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const {
    if (file != stdin) std::fclose(file);
  }
};

Failure unreadable(const std::string& path) {
  return {FailureKind::file,
          source_name(path) + " cannot be read: " + system_reason(errno, "give a file, or - for standard input")};
}

std::string read_bytes(const std::string& path) {
  const std::unique_ptr<std::FILE, CloseFile> file(path == standard_input ? stdin : std::fopen(path.c_str(), "rb"));
  if (!file) throw unreadable(path);
  std::string bytes;
  std::array<char, 65536> block{};
  while (const size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
    bytes.append(block.data(), count);
    if (bytes.size() > largest_input) throw too_large(source_name(path));
  }
  if (std::ferror(file.get()) != 0) throw unreadable(path);
  return bytes;
}

}  // namespace

std::string source_name(const std::string& path) { return path == standard_input ? "standard input" : path; }

Failure too_large(const std::string& name) {
  return {FailureKind::file, name + " holds more than 256 MiB, which is the limit; every draw since 1871 takes 3"};
}

std::string unpacked(std::string bytes, const std::string& name) {
  if (is_zip(bytes)) return only_file_of_zip(bytes, name);
  return is_gzip(bytes) ? unpacked_gzip(bytes, name) : bytes;
}

std::string read_source(const std::string& path) { return unpacked(read_bytes(path), source_name(path)); }

}  // namespace vestara
