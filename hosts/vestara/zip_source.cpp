#include "hosts/vestara/zip_source.h"

#include <zip.h>

#include <memory>
#include <vector>

#include "hosts/vestara/failure.h"

namespace vestara::host {
namespace {

constexpr zip_uint64_t largest = zip_uint64_t{256} << 20;

struct Discard {
  void operator()(zip_t* archive) const { zip_discard(archive); }
  void operator()(zip_file_t* file) const { zip_fclose(file); }
};
using Archive = std::unique_ptr<zip_t, Discard>;
using Entry = std::unique_ptr<zip_file_t, Discard>;

Failure unusable(const std::string& name, const std::string& why) {
  return {ExitCode::file, name + ": " + why + "; a zip with one file of draws in it is needed"};
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
    if (path && !is_hidden(path)) files.push_back(static_cast<zip_uint64_t>(i));
  }
  if (files.empty()) throw unusable(name, "the zip holds no file");
  if (files.size() > 1) throw unusable(name, "the zip holds " + std::to_string(files.size()) + " files");
  return files.front();
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
  if (about.size > largest) throw unusable(name, "the file in the zip is larger than 256 MiB");
  const Entry entry(zip_fopen_index(archive.get(), index, 0));
  if (!entry) throw unusable(name, zip_strerror(archive.get()));
  std::string text(about.size, '\0');
  const zip_int64_t count = zip_fread(entry.get(), text.data(), text.size());
  if (count < 0 || static_cast<zip_uint64_t>(count) != about.size) throw unusable(name, "the zip is damaged");
  // The checksum is compared when the end is read.
  char beyond = 0;
  if (zip_fread(entry.get(), &beyond, 1) != 0) throw unusable(name, "the zip is damaged");
  return text;
}

}  // namespace vestara::host
