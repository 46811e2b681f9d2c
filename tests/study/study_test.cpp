#include <gtest/gtest.h>

#include "automation/error.h"
#include "automation/registry.h"
#include "automation/system/file.h"
#include "tests/study/random_history.h"
#include "tests/study/random_question.h"
#include "tests/study/study_archive.h"
#include "tests/support/archive_file.h"

// Every member of Study against the oracle.

namespace study_test {
namespace {

using testing_support::Archive;
using testing_support::Random;

class StudyComparison : public StudyArchive {
 protected:
  /// Asks both; tells the first disagreements of each member.
  void compare(Random& random, const std::string& member, const testing_support::study::Draws& draws,
               const std::string& archive) {
    const Answered answered = random_question(random, member, draws);
    const Walk walk = random.one_in(8) ? Walk::by_name : Walk::by_interface;
    const std::string found = disagreement(*study_, answered.question, answered.answer, walk);
    ++(answered.answer.rows.empty() ? empty_ : filled_)[member];
    if (found.empty() || ++disagreements_[member] > 3) return;
    ADD_FAILURE() << archive << ", " << shown(answered.question) << "\n  " << found;
  }
  void TearDown() override {
    for (const auto& [member, count] : disagreements_) ADD_FAILURE() << member << ": " << count << " disagreements";
    StudyArchive::TearDown();
  }

  std::map<std::string, size_t> filled_;  ///< answers with rows, by member
  std::map<std::string, size_t> empty_;
  std::map<std::string, size_t> disagreements_;
};

TEST_F(StudyComparison, AThousandArchives) {
  constexpr uint64_t archives = 1000;
  for (uint64_t seed = 1; seed <= archives; ++seed) {
    Random random(seed);
    const Archive archive = random_history(random);
    store(archive);
    if (random.one_in(10)) study_ = another_study();
    const auto draws = testing_support::study::draws_in(archive);
    for (const auto& [member, parameters] : members()) compare(random, member, draws, "seed " + std::to_string(seed));
  }
  for (const auto& [member, parameters] : members()) {
    EXPECT_GT(filled_[member], archives / 4) << member;
    if (member != "Odds") {
      EXPECT_GT(empty_[member], archives / 20) << member;
    }
  }
}

TEST_F(StudyComparison, FairnessOfLongArchives) {
  constexpr uint64_t archives = 24;
  for (uint64_t seed = 1; seed <= archives; ++seed) {
    Random random(seed);
    Archive archive;
    for (const char* wheel : {"RN", "BA", "NA"}) {
      const auto draws = random.pick<size_t>({0, 1, 99, 100, 101, 1999, 2000, 2001, 2300});
      const Archive one = fair_history(random, wheel, draws);
      archive.insert(archive.end(), one.begin(), one.end());
    }
    store(archive);
    const auto draws = testing_support::study::draws_in(archive);
    for (int i = 0; i < 4; ++i) compare(random, "Fairness", draws, "seed " + std::to_string(seed));
  }
  EXPECT_GT(filled_["Fairness"], archives);
}

TEST_F(StudyComparison, TheRealArchive) {
  const std::string path = automation::environment_variable("VESTARA_REAL_ARCHIVE");
  if (path.empty()) GTEST_SKIP() << "no real archive: VESTARA_REAL_ARCHIVE is not set";
  const Archive archive = testing_support::archive_in_file(path);
  store(archive);
  const auto draws = testing_support::study::draws_in(archive);
  for (uint64_t seed = 1; seed <= 8; ++seed) {
    Random random(seed);
    for (const auto& [member, parameters] : members()) compare(random, member, draws, "seed " + std::to_string(seed));
  }
  for (const auto& [member, parameters] : members()) EXPECT_GT(filled_[member], 4U) << member;
}

}  // namespace
}  // namespace study_test
