#pragma once

#include "tests/study/question.h"
#include "tests/support/random.h"
#include "tests/support/study_oracle.h"

namespace study_test {

/// A question and what the oracle answers.
struct Answered {
  Question question;
  Table answer;
};

/// A question that is in order, about the draws of an archive: wheels, dates and numbers in every writing, arguments
/// left out, by place and by name.
Answered random_question(testing_support::Random& random, const std::string& member,
                         const testing_support::study::Draws& draws);

}  // namespace study_test
