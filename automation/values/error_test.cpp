#include "automation/error.h"

#include <gtest/gtest.h>

namespace automation {
namespace {

TEST(RunTimeError, StandardTexts) {
  const struct {
    int32_t number;
    const char* text;
  } rows[] = {{5, "Invalid procedure call or argument"},
              {6, "Overflow"},
              {7, "Out of memory"},
              {9, "Subscript out of range"},
              {10, "This array is fixed or temporarily locked"},
              {11, "Division by zero"},
              {13, "Type mismatch"},
              {18, "User interrupt occurred"},
              {28, "Out of stack space"},
              {52, "Bad file name or number"},
              {53, "File not found"},
              {61, "Disk full"},
              {67, "Too many files"},
              {70, "Permission denied"},
              {75, "Path/File access error"},
              {76, "Path not found"},
              {91, "Object variable or With block variable not set"},
              {94, "Invalid use of Null"},
              {429, "Component can't create object"},
              {430, "Class does not support Automation or does not support expected interface"},
              {438, "Object doesn't support this property or method"},
              {445, "Object doesn't support this action"},
              {446, "Object doesn't support named arguments"},
              {448, "Named argument not found"},
              {449, "Argument not optional"},
              {450, "Wrong number of arguments or invalid property assignment"},
              {451, "Property let procedure not defined and property get procedure did not return an object"},
              {457, "This key is already associated with an element of this collection"},
              {458, "Variable uses a type not supported by this system"},
              {3021, "No current record"},
              {3251, "The operation is not supported by this object"},
              {3265, "Item not found in this collection"},
              {3704, "Operation is not allowed when the object is closed"},
              {1, "Application-defined or object-defined error"},
              {-5, "Application-defined or object-defined error"}};
  for (const auto& row : rows) {
    EXPECT_EQ(standard_description(row.number), row.text) << row.number;
    EXPECT_EQ(RunTimeError(row.number).description(), row.text);
  }
}

TEST(RunTimeError, MakersGiveTheirNumberAndItsText) {
  const struct {
    RunTimeError error;
    int32_t number;
  } rows[] = {{invalid_call(), 5},
              {overflow(), 6},
              {out_of_memory(), 7},
              {subscript_out_of_range(), 9},
              {array_is_locked(), 10},
              {division_by_zero(), 11},
              {type_mismatch(), 13},
              {user_interrupt(), 18},
              {out_of_stack_space(), 28},
              {disk_full(), 61},
              {too_many_files(), 67},
              {permission_denied(), 70},
              {path_file_access(), 75},
              {path_not_found(), 76},
              {object_not_set(), 91},
              {invalid_use_of_null(), 94},
              {cannot_create_object(), 429},
              {no_automation(), 430},
              {no_such_member(), 438},
              {no_such_action(), 445},
              {no_named_arguments(), 446},
              {named_argument_not_found(), 448},
              {argument_not_optional(), 449},
              {wrong_argument_count(), 450},
              {no_object_returned(), 451},
              {duplicate_key(), 457},
              {unsupported_type(), 458},
              {no_current_record(), 3021},
              {item_not_found(), 3265},
              {object_is_closed(), 3704}};
  for (const auto& row : rows) {
    EXPECT_EQ(row.error.number(), row.number);
    EXPECT_EQ(row.error.description(), standard_description(row.number));
    EXPECT_STREQ(row.error.what(), row.error.description().c_str());
    EXPECT_EQ(row.error.source(), "");
  }
}

TEST(RunTimeError, ASentenceStandsInPlaceOfThePlatformsText) {
  const struct {
    RunTimeError (*make)(std::string);
    int32_t number;
  } rows[] = {{invalid_call, 5},       {out_of_memory, 7},     {disk_full, 61},     {too_many_files, 67},
              {permission_denied, 70}, {path_file_access, 75}, {path_not_found, 76}};
  for (const auto& row : rows) {
    EXPECT_EQ(row.make("why").number(), row.number);
    EXPECT_EQ(row.make("why").description(), "why");
  }
}

TEST(RunTimeError, ATextCanBeContinued) {
  const RunTimeError error = RunTimeError(438, "no member", "cLotto").continued(": 'x'");
  EXPECT_EQ(error.number(), 438);
  EXPECT_EQ(error.description(), "no member: 'x'");
  EXPECT_STREQ(error.what(), "no member: 'x'");
  EXPECT_EQ(error.source(), "cLotto");
}

TEST(RunTimeError, AnEnginesErrorKnowsWhatItWasAsked) {
  const RunTimeError plain = disk_full("no room");
  EXPECT_EQ(plain.context(), nullptr);
  const RunTimeError error = plain.with_context({"sqlite", "DELETE FROM storico", Refusal::full}).continued("; sorry");
  EXPECT_EQ(error.number(), 61);
  EXPECT_EQ(error.description(), "no room; sorry");
  EXPECT_EQ(error.kind(), FailureKind::database);
  ASSERT_NE(error.context(), nullptr);
  EXPECT_EQ(error.context()->engine, "sqlite");
  EXPECT_EQ(error.context()->statement, "DELETE FROM storico");
  EXPECT_EQ(error.context()->refusal, Refusal::full);
}

TEST(RunTimeError, KeepsWhatItIsGiven) {
  const RunTimeError error(-2147217900, "syntax", "cLotto");
  EXPECT_EQ(error.number(), -2147217900);
  EXPECT_EQ(error.description(), "syntax");
  EXPECT_EQ(error.source(), "cLotto");
  EXPECT_EQ(error.kind(), FailureKind::unspecified);
  EXPECT_EQ(unspecified_failure, -2147467259);
}

TEST(RunTimeError, AFailureHasItsKindAndNoNumberOfThePlatform) {
  using enum FailureKind;
  for (const FailureKind kind : {argument, nothing_found, database, file, interrupted}) {
    const RunTimeError error = failure(kind, "draws.csv:3: no such wheel");
    EXPECT_EQ(error.kind(), kind);
    EXPECT_EQ(error.number(), unspecified_failure);
    EXPECT_EQ(error.description(), "draws.csv:3: no such wheel");
    EXPECT_EQ(error.source(), "");
  }
}

}  // namespace
}  // namespace automation
