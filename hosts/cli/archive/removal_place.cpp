#include "hosts/cli/archive/removal_place.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>

#include "hosts/cli/archive/archive_url.h"

namespace vestara::host {
namespace {

constexpr const char* remedy = "--no-backup does without";

/// A file name that tells the archives of servers apart, without a password.
std::string name_of_server(const std::string& url) {
  std::string name = shown_url(url);
  constexpr uint32_t prime = 16777619;
  uint32_t hash = 2166136261;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * prime;
  name.resize(std::min(name.find('?'), name.size()));
  for (char& c : name)
    if (std::isalnum(static_cast<unsigned char>(c)) == 0) c = '-';
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), "-%08x", hash);
  return name.substr(0, 100) + digits.data();
}

}  // namespace

RemovalPlace removal_place(const std::string& url) {
  if (const auto file = file_of(url)) {
    const std::filesystem::path path(*file);
    return {path.has_parent_path() ? path.parent_path() : ".", path.filename().string(), remedy};
  }
  return {usual_archive_file().parent_path(), name_of_server(url), remedy};
}

}  // namespace vestara::host
