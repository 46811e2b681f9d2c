#include "tests/support/random_archive.h"

#include <algorithm>

namespace testing_support {

namespace {

bool chance(Random& random, size_t one_in) { return one_in != 0 && random.one_in(one_in); }

int32_t up_to(Random& random, int32_t highest) {
  return 1 + static_cast<int32_t>(random.below(static_cast<size_t>(highest)));
}

void shuffle(Random& random, std::vector<std::string>& items) {
  for (size_t i = items.size(); i > 1; --i) std::swap(items[i - 1], items[random.below(i)]);
}

std::array<std::optional<int32_t>, 5> draw(Random& random, const ArchiveShape& shape) {
  std::array<std::optional<int32_t>, 5> numbers;
  const bool zeros = chance(random, shape.zero_row);
  for (auto place = numbers.begin(); place != numbers.end(); ++place) {
    if (chance(random, shape.null_number)) continue;
    *place = zeros ? 0 : up_to(random, shape.highest_number);
    const bool distinct = !zeros && shape.highest_number >= 5;
    while (distinct && std::find(numbers.begin(), place, *place) != place) *place = up_to(random, shape.highest_number);
  }
  return numbers;
}

void add_contest(Random& random, const ArchiveShape& shape, automation::Date date, int32_t contest, Archive& archive) {
  const std::optional<int32_t> number =
      chance(random, shape.null_contest) ? std::optional<int32_t>() : std::optional(contest);
  auto wheels = shape.wheels.empty() ? all_aliases() : shape.wheels;
  shuffle(random, wheels);
  for (const auto& wheel : wheels)
    if (!chance(random, shape.missing_wheel)) archive.push_back({date, number, wheel, draw(random, shape)});
}

std::string literal(const std::optional<int32_t>& value) { return value ? std::to_string(*value) : "NULL"; }

}  // namespace

const std::vector<std::string>& all_aliases() {
  static const std::vector<std::string> aliases{"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE", "RN"};
  return aliases;
}

ArchiveShape random_shape(Random& random) {
  ArchiveShape shape;
  shape.dates = static_cast<int32_t>(random.below(random.pick<size_t>({2, 30, 50, 70})));
  shape.days_apart = up_to(random, 10);
  shape.highest_number = random.pick<int32_t>({3, 8, 20, 90});
  shape.missing_wheel = random.pick<size_t>({0, 2, 4, 20});
  shape.missing_date = random.pick<size_t>({0, 6});
  shape.zero_row = random.pick<size_t>({0, 8});
  shape.null_number = random.pick<size_t>({0, 10});
  shape.second_contest = random.pick<size_t>({0, 0, 4});
  shape.null_contest = random.pick<size_t>({0, 0, 6});
  shape.wheels = random.pick<std::vector<std::string>>({{}, {"VE"}, {"NA", "BA"}, {"RN", "RM", "TO"}});
  return shape;
}

Archive random_archive(Random& random, const ArchiveShape& shape) {
  Archive archive;
  int32_t day = automation::day_from_civil(1999, 12, 1);
  for (int32_t contest = 1; contest <= shape.dates; ++contest) {
    day += up_to(random, shape.days_apart);
    if (chance(random, shape.missing_date)) continue;
    const auto date = automation::Date::from_day(day);
    add_contest(random, shape, date, contest, archive);
    if (chance(random, shape.second_contest)) add_contest(random, shape, date, contest + 100, archive);
  }
  return archive;
}

std::string insert_statement(const Archive& archive) {
  if (archive.empty()) return {};
  std::string text = "INSERT INTO storico(concorsoNumero,dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES";
  for (const auto& row : archive) {
    text += (&row == &archive.front() ? "(" : ",(") + literal(row.contest);
    text += ",'" + automation::iso_day(row.date) + "','" + row.wheel + "'";
    for (const auto& number : row.numbers) text += "," + literal(number);
    text += ")";
  }
  return text;
}

std::vector<std::string> insert_statements(const Archive& archive) {
  constexpr size_t rows_a_statement = 500;
  std::vector<std::string> statements;
  for (size_t i = 0; i < archive.size(); i += rows_a_statement) {
    const auto begin = archive.begin() + static_cast<std::ptrdiff_t>(i);
    const auto count = static_cast<std::ptrdiff_t>(std::min(rows_a_statement, archive.size() - i));
    statements.push_back(insert_statement(Archive(begin, begin + count)));
  }
  return statements;
}

}  // namespace testing_support
