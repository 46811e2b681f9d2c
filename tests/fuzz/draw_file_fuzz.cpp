#include <zlib.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "automation/date.h"
#include "tests/fuzz/counted_memory.h"
#include "tests/support/random.h"
#include "vestara/draws/synthetic_draws.h"
#include "vestara/files/contest_numbers.h"
#include "vestara/files/draw_file.h"
#include "vestara/files/draw_file_writer.h"
#include "vestara/files/file_source.h"
#include "vestara/files/gzip_source.h"
#include "vestara/files/zip_source.h"
#include "vestara/foundation/failure.h"

// Files of draws in every form, damaged at random. Each must be read or refused with a Failure (file); what is read
// must be draws, add up and read back; the memory taken must stay within its bound.
//   draw_file_fuzz [FILES] [SEED]

namespace {

using testing_support::Random;
using namespace vestara;

[[noreturn]] void fail(const char* what, const std::string& file) {
  std::fprintf(stderr, "%s does not hold for a file of %zu bytes, left in draw_file_fuzz.failed\n", what, file.size());
  if (std::FILE* left = std::fopen("draw_file_fuzz.failed", "wb")) {
    std::fwrite(file.data(), 1, file.size(), left);
    std::fclose(left);
  }
  std::abort();
}

std::string little_endian(uint32_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
  return text;
}

uint32_t checksum(const std::string& text) {
  return static_cast<uint32_t>(::crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size())));
}

std::string deflated(const std::string& text, int window) {
  z_stream stream{};
  if (::deflateInit2(&stream, 6, Z_DEFLATED, window, 8, Z_DEFAULT_STRATEGY) != Z_OK) std::abort();
  std::string packed(::deflateBound(&stream, text.size()), '\0');
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
  stream.avail_in = static_cast<uInt>(text.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  if (::deflate(&stream, Z_FINISH) != Z_STREAM_END) std::abort();
  packed.resize(stream.total_out);
  ::deflateEnd(&stream);
  return packed;
}

std::string gzip(const std::string& text) { return deflated(text, 16 + MAX_WBITS); }

/// A zip with one file in it.
std::string zip(const std::string& text) {
  const std::string packed = deflated(text, -MAX_WBITS);
  const std::string name = "storico.txt";
  const std::string about = little_endian(20, 2) + little_endian(0, 2) + little_endian(8, 2) + little_endian(0, 4) +
                            little_endian(checksum(text), 4) + little_endian(static_cast<uint32_t>(packed.size()), 4) +
                            little_endian(static_cast<uint32_t>(text.size()), 4) +
                            little_endian(static_cast<uint32_t>(name.size()), 2) + little_endian(0, 2);
  const std::string local = "PK\x03\x04" + about + name + packed;
  const std::string central = "PK\x01\x02" + little_endian(20, 2) + about + std::string(14, '\0') + name;
  return local + central + "PK\x05\x06" + little_endian(0, 4) + little_endian(1, 2) + little_endian(1, 2) +
         little_endian(static_cast<uint32_t>(central.size()), 4) +
         little_endian(static_cast<uint32_t>(local.size()), 4) + little_endian(0, 2);
}

std::string utf16(const std::string& text, bool high_first, bool mark) {
  std::string bytes = mark ? (high_first ? "\xFE\xFF" : "\xFF\xFE") : "";
  for (const char c : text) {
    if (high_first) bytes += '\0';
    bytes += c;
    if (!high_first) bytes += '\0';
  }
  return bytes;
}

std::string replaced(std::string text, char from, const std::string& to) {
  std::string result;
  for (const char c : text) result += c == from ? to : std::string(1, c);
  return result;
}

std::string written(const std::vector<DrawRow>& rows, DrawFormat format, ContestColumn contest) {
  DrawFileWriter writer(format, contest);
  std::string text;
  writer.begin(text);
  for (const DrawRow& row : rows) writer.add(text, row);
  return text;
}

/// A file of every form, of the same draws.
std::vector<std::string> forms_of(const std::vector<DrawRow>& rows) {
  const std::string tsv = written(rows, DrawFormat::tsv, ContestColumn::absent);
  const std::string csv = written(rows, DrawFormat::csv, ContestColumn::present);
  const std::string update = written(rows, DrawFormat::update, ContestColumn::absent);
  const std::string bare = csv.substr(csv.find('\n') + 1);
  const std::string italian =
      "data;concorso;ruota;1\xC2\xB0;2\xC2\xB0;3\xC2\xB0;4\xC2\xB0;5\xC2\xB0\n" + replaced(bare, ',', ";");
  std::vector<std::string> forms{tsv,
                                 csv,
                                 update,
                                 bare,
                                 italian,
                                 written(rows, DrawFormat::csv, ContestColumn::absent),
                                 "\xEF\xBB\xBF" + csv,
                                 replaced(tsv, '\n', "\r\n"),
                                 replaced(update, '\n', "\r"),
                                 utf16(tsv, false, true),
                                 utf16(csv, true, true),
                                 utf16(italian, false, false),
                                 utf16(update, true, false)};
  for (const std::string& text : {tsv, csv, update}) {
    forms.push_back(zip(text));
    forms.push_back(gzip(text));
  }
  return forms;
}

std::vector<DrawRow> some_rows(Random& random) {
  std::vector<DrawRow> rows;
  const int32_t from = automation::day_from_civil(1939, 1, 1) + static_cast<int32_t>(random.below(30000));
  synthetic_draws(random.below(1000), from, from + 7 + static_cast<int32_t>(random.below(25)), [&](const DrawRow& row) {
    rows.push_back(row);
    return true;
  });
  number_contests(rows);
  return rows;
}

size_t place_in(const std::string& text, Random& random) { return random.below(text.size() + 1); }

char some_byte(Random& random) {
  constexpr std::string_view usual("\t\n\r,;#*\"/-.0123456789BARIVEZxn1 PK\xB0\xFF\xFE\xEF\0", 39);
  return usual[random.below(usual.size())];
}

/// One damage.
void damage(std::string& file, const std::string& other, Random& random) {
  const size_t place = place_in(file, random);
  const size_t span = 1 + random.below(40);
  switch (random.below(9)) {
    case 0:
      if (place < file.size()) file[place] = static_cast<char>(random.below(256));
      return;
    case 1:
      if (place < file.size()) file[place] = static_cast<char>(file[place] ^ (1 << random.below(8)));
      return;
    case 2:
      file.insert(place, 1, some_byte(random));
      return;
    case 3:
      file.erase(place, span);
      return;
    case 4:
      file.insert(place, file.substr(place_in(file, random), span));
      return;
    case 5:
      file.resize(place);
      return;
    case 6:
      file.insert(place, other.substr(place_in(other, random), span * 5));
      return;
    case 7:
      if (place < file.size()) file.insert(place, span * 20, file[place]);
      return;
    default:
      if (place < file.size()) file[place] = some_byte(random);
  }
}

/// Many times as long: what grows with the file shows.
std::string swollen(const std::string& file, Random& random) {
  const size_t place = place_in(file, random);
  const std::string part = file.substr(place, 1 + random.below(400));
  const size_t length = size_t{1} << (12 + random.below(9));
  std::string more;
  while (!part.empty() && more.size() < length) more += part;
  return std::string(file).insert(place, more);
}

void check_rows(const DrawFile& file, const std::string& bytes) {
  const CollectedDraws& draws = file.draws;
  if (draws.read != draws.rows.size() + draws.repeated + draws.rejected.count()) fail("every row is counted", bytes);
  if (draws.rejected.first().size() > 20) fail("twenty rejected rows are kept", bytes);
  for (size_t i = 0; i < draws.rows.size(); ++i) {
    const DrawRow& row = draws.rows[i];
    if (i > 0 && !comes_before(draws.rows[i - 1], row)) fail("each date and wheel comes once, in order", bytes);
    if (row.wheel < 1 || row.wheel > 11 || row.contest < 0) fail("wheel and contest are such", bytes);
    auto numbers = row.numbers;
    std::sort(numbers.begin(), numbers.end());
    const bool differ = std::adjacent_find(numbers.begin(), numbers.end()) == numbers.end();
    if (!differ || numbers.front() < 1 || numbers.back() > 90) fail("numbers are five of 1 to 90", bytes);
  }
}

void check_way_back(const DrawFile& file, const std::string& bytes) {
  for (const DrawFormat format : {DrawFormat::tsv, DrawFormat::csv, DrawFormat::update}) {
    if (file.draws.rows.empty()) return;
    const DrawFile again = parse_draw_file(written(file.draws.rows, format, ContestColumn::absent), "again");
    const auto& rows = again.draws.rows;
    if (!std::equal(rows.begin(), rows.end(), file.draws.rows.begin(), file.draws.rows.end(), same_draw))
      fail("what was read reads back", bytes);
  }
}

struct Tally {
  size_t read = 0;
  size_t with_rejects = 0;
  size_t refused = 0;
  size_t largest = 0;        ///< bytes unpacked
  double most_per_byte = 0;  ///< memory beyond a MiB
};

void check_file(const std::string& bytes, Tally& tally) {
  constexpr size_t fixed = size_t{1} << 20;
  size_t size = bytes.size();
  bool is_unpacked = false;
  counted_memory::start();
  try {
    const std::string text = unpacked(std::string(bytes), "x");
    is_unpacked = true;
    size = std::max(size, text.size());
    const DrawFile file = parse_draw_file(text, "x");
    const size_t peak = counted_memory::peak();
    if (peak > fixed)
      tally.most_per_byte =
          std::max(tally.most_per_byte, static_cast<double>(peak - fixed) / static_cast<double>(size));
    check_rows(file, bytes);
    check_way_back(file, bytes);
    ++tally.read;
    if (!file.draws.rejected.empty()) ++tally.with_rejects;
    if (peak > fixed + 4 * size) fail("memory is four times the file at most", bytes);
  } catch (const Failure& failure) {
    if (failure.kind() != FailureKind::file) fail("a bad file is refused as one", bytes);
    // How much of a packed file came out before it proved damaged is not known here.
    const bool is_measured = is_unpacked || !(is_zip(bytes) || is_gzip(bytes));
    if (is_measured && counted_memory::peak() > fixed + 4 * size) fail("a refused file takes no more", bytes);
    ++tally.refused;
  }
  tally.largest = std::max(tally.largest, size);
}

/// Files of one byte only, plain and packed: nothing but rows in error, or a single one.
void check_monotonous_files(Tally& tally) {
  for (const char byte : {'*', '#', '\n', '\r', ',', ';', '\t', '5', '/', ' '}) {
    const std::string text = "#" + std::string(size_t{1} << 19, byte);
    for (const std::string& file : {text, zip(text), gzip(text)}) check_file(file, tally);
  }
}

}  // namespace

int main(int argc, char** argv) {
  const long files = argc > 1 ? std::atol(argv[1]) : 3000;
  Random random(argc > 2 ? static_cast<uint64_t>(std::atoll(argv[2])) : 1);
  Tally tally;
  check_monotonous_files(tally);
  std::vector<std::string> forms;
  for (long i = 0; i < files; ++i) {
    if (i % 500 == 0) {
      forms = forms_of(some_rows(random));
      for (const std::string& whole : forms) check_file(whole, tally);
    }
    std::string file = random.pick(forms);
    for (size_t damages = 1 + random.below(6); damages > 0; --damages) damage(file, random.pick(forms), random);
    if (i % 50 == 0) file = swollen(file, random);
    check_file(file, tally);
  }
  std::printf(
      "%ld files: %zu read, %zu of them with rows in error, %zu refused; the largest %zu bytes, memory %.2f times "
      "the file and a MiB at most\n",
      files, tally.read, tally.with_rejects, tally.refused, tally.largest, tally.most_per_byte);
  return 0;
}
