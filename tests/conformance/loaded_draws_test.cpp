#include "vestara/draws/loaded_draws.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "tests/conformance/back_end.h"
#include "tests/support/connectors.h"
#include "tests/support/values.h"
#include "vestara/draws/archive_draws.h"
#include "vestara/draws/wheel_set.h"

namespace conformance {
namespace {

using testing_support::Archive;
using testing_support::ArchiveRow;

class LoadedDrawsTest : public BackEnd {};

INSTANTIATE_TEST_SUITE_P(Engines, LoadedDrawsTest, engines(), engine_name);

/// The draws of a wheel as they should stand in memory; a row without numbers is none.
Archive draws_of(const Archive& archive, const std::string& wheel) {
  Archive rows;
  for (const ArchiveRow& row : archive)
    if (row.wheel == wheel && row.numbers[0].value_or(0) != 0) rows.push_back(row);
  std::sort(rows.begin(), rows.end(), [](const ArchiveRow& left, const ArchiveRow& right) {
    return std::tuple(left.date.serial(), left.contest, left.numbers) <
           std::tuple(right.date.serial(), right.contest, right.numbers);
  });
  return rows;
}

/// Every row has five numbers of ninety.
Archive whole_archive(uint64_t seed) {
  testing_support::Random random(seed);
  testing_support::ArchiveShape shape = testing_support::random_shape(random);
  shape.null_number = 0;
  shape.highest_number = 90;
  return testing_support::random_archive(random, shape);
}

TEST_P(LoadedDrawsTest, AreThoseOfTheArchive) {
  for (uint64_t seed = 1; seed <= seeds() / 10; ++seed) {
    const Archive archive = whole_archive(seed);
    store(archive);
    const auto loaded = vestara::load_draws(connector_);
    size_t all = 0;
    for (const std::string& wheel : testing_support::all_aliases()) {
      const Archive expected = draws_of(archive, wheel);
      const auto range = loaded->rows_of(vestara::wheel_of_code(wheel), {}, {});
      ASSERT_EQ(range.end - range.first, expected.size()) << wheel << " " << seed;
      for (size_t i = 0; i < expected.size(); ++i) {
        const size_t row = range.first + i;
        ASSERT_EQ(loaded->day(row), expected[i].date.day()) << seed;
        ASSERT_EQ(loaded->contest(row), expected[i].contest) << seed;
        for (size_t n = 0; n < 5; ++n) ASSERT_EQ(loaded->numbers(row)[n], expected[i].numbers[n]) << seed;
      }
      all += expected.size();
    }
    ASSERT_EQ(loaded->rows(), all) << seed;
  }
}

/// Rows, in words.
std::string described(const vestara::LoadedDraws& draws) {
  std::string text;
  for (size_t row = 0; row < draws.rows(); ++row) {
    text += std::to_string(draws.day(row)) + " " + std::to_string(draws.contest(row).value_or(-1));
    for (const uint8_t number : draws.numbers(row)) text += " " + std::to_string(number);
    text += "\n";
  }
  return text;
}

TEST_P(LoadedDrawsTest, AreTheSameThroughARecordSet) {
  for (uint64_t seed = 1; seed <= seeds() / 10; ++seed) {
    store(whole_archive(seed));
    // A connector that records hands nothing over.
    const auto by_record_set = automation::make<testing_support::RecordingConnector>(connector_);
    ASSERT_EQ(described(*vestara::load_draws(connector_)), described(*vestara::load_draws(by_record_set))) << seed;
  }
}

TEST_P(LoadedDrawsTest, FollowTheArchive) {
  const char* const insert =
      "INSERT INTO storico(dtEstr,ruota,estr1,estr2,estr3,estr4,estr5)VALUES('2001-01-01','BA',1,2,3,4,5)";
  vestara::ArchiveDraws draws(connector_);
  EXPECT_EQ(draws.current()->rows(), 0U);
  ASSERT_TRUE(execute(insert));
  if (GetParam() != Engine::sqlite) draws.refresh();
  EXPECT_EQ(draws.current()->rows(), 1U);
  ASSERT_TRUE(another()->ExecuteSql(insert));
  if (GetParam() != Engine::sqlite) draws.refresh();
  EXPECT_EQ(draws.current()->rows(), 2U);
}

}  // namespace
}  // namespace conformance
