#include "vestara/files/zip_source.h"

#include <zip.h>

#include <array>
#include <memory>
#include <vector>

#include "vestara/files/file_source.h"
#include "vestara/foundation/failure.h"

namespace vestara {
namespace {

struct Discard {
  void operator()(zip_t* archive) const { zip_discard(archive); }
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using Archive = std::unique_ptr<zip_t, Discard>;
using Entry = std::unique_ptr<zip_file_t, Discard>;

Failure unusable(const std::string& name, const std::string& why) {
  return {FailureKind::file, name + ": " + why + "; a zip with one file of draws in it is needed"};
}

Archive open_archive(std::string_view bytes, const std::string& name) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  Archive archive(source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr);
  const std::string why = zip_error_strerror(&error);
  zip_error_fini(&error);
  if (!archive && source) zip_source_free(source);
  if (!archive) throw unusable(name, why);
  return archive;
}

bool is_hidden(std::string_view path) {
  const std::string_view base = path.substr(path.rfind('/') + 1);
  return base.empty() || base.front() == '.' || path.substr(0, 9) == "__MACOSX/";
}

zip_uint64_t only_entry(zip_t* archive, const std::string& name) {
  std::vector<zip_uint64_t> files;
  for (zip_int64_t i = 0; i < zip_get_num_entries(archive, 0); ++i) {
    const char* path = zip_get_name(archive, static_cast<zip_uint64_t>(i), 0);
    if (path && std::string_view(path) == "[Content_Types].xml")
      throw Failure(FailureKind::file, name + " is an office document; save its sheet as CSV");
    if (path && !is_hidden(path)) files.push_back(static_cast<zip_uint64_t>(i));
  }
  if (files.empty()) throw unusable(name, "the zip holds no file");
  if (files.size() > 1) throw unusable(name, "the zip holds " + std::to_string(files.size()) + " files");
  return files.front();
}

/// The size is what the zip says: it may say anything, and memory is taken for what is really there. The checksum is
/// compared when the end is read.
std::string all_of(zip_file_t* entry, zip_uint64_t size, const std::string& name) {
  std::string text;
  std::array<char, 65536> block{};
  zip_int64_t count = 0;
  while ((count = zip_fread(entry, block.data(), block.size())) > 0) {
    text.append(block.data(), static_cast<size_t>(count));
    if (text.size() > size) break;
  }
  if (count != 0 || text.size() != size) throw unusable(name, "the zip is damaged");
  return text;
}

}  // namespace

bool is_zip(std::string_view bytes) {
  const std::string_view mark = bytes.substr(0, 4);
  return mark == std::string_view("PK\x03\x04", 4) || mark == std::string_view("PK\x05\x06", 4);
}

std::string only_file_of_zip(std::string_view bytes, const std::string& name) {
  const Archive archive = open_archive(bytes, name);
  const zip_uint64_t index = only_entry(archive.get(), name);
  zip_stat_t about;
  zip_stat_init(&about);
  if (zip_stat_index(archive.get(), index, 0, &about) != 0) throw unusable(name, zip_strerror(archive.get()));
  if (about.size > largest_input) throw too_large(name);
  const Entry entry(zip_fopen_index(archive.get(), index, 0));
  if (!entry) throw unusable(name, zip_strerror(archive.get()));
  return all_of(entry.get(), about.size, name);
}

}  // namespace vestara
