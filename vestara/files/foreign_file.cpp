#include "vestara/files/foreign_file.h"

#include <algorithm>
#include <array>

#include "automation/text.h"

namespace vestara {
namespace {

struct Beginning {
  std::string_view bytes;
  ForeignKind kind;
};

constexpr std::string_view unpack = "unpack it first, or take a zip or gzip file";
constexpr ForeignKind page{"a web page, not the file itself", "fetch the file that the page offers"};

constexpr std::array<Beginning, 8> beginnings{
    {{"BZh", {"a bzip2 file", unpack}},
     {"\xFD"
      "7zXZ",
      {"an xz file", unpack}},
     {"7z\xBC\xAF", {"a 7z archive", unpack}},
     {"Rar!", {"a rar archive", unpack}},
     {"%PDF", {"a PDF document", "take the text file of the same draws"}},
     {"\xD0\xCF\x11\xE0", {"an office document", "save its sheet as CSV"}},
     {"SQLite format 3", {"an archive in SQLite", "vestara copy --from sqlite:FILE --to … brings it over"}},
     {"{\\rtf", {"a document of a text processor", "save it as plain text"}}}};

}  // namespace

std::optional<ForeignKind> foreign_kind(std::string_view bytes) {
  for (const Beginning& beginning : beginnings)
    if (bytes.starts_with(beginning.bytes)) return beginning.kind;
  const std::string_view text = bytes.substr(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
  for (const std::string_view tag : {"<!doctype", "<html", "<?xml", "<head"})
    if (automation::equal_ignoring_case(text.substr(0, tag.size()), tag)) return page;
  return std::nullopt;
}

}  // namespace vestara
