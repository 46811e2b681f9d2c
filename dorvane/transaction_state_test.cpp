#include "dorvane/transaction_state.h"

#include <gtest/gtest.h>

#include <string>

namespace dorvane {
namespace {

using automation::RunTimeError;

std::string refusal_of(const TransactionState& state, void (TransactionState::*requirement)() const) {
  try {
    (state.*requirement)();
  } catch (const RunTimeError& error) {
    return error.description();
  }
  return {};
}

TEST(TransactionState, ABodyThatRaisesLosesWhatTheEngineHoldsNoLonger) {
  struct Row {
    bool open;
    bool whole;
    const char* refusal;
  };
  for (const Row& row : {Row{true, false, "the transaction is lost (disk full); roll back or begin again"},
                         Row{true, true, ""}, Row{false, false, ""}, Row{false, true, ""}}) {
    TransactionState state;
    if (row.open) state.opened();
    EXPECT_THROW(state.around([] { throw RunTimeError(5, "disk full"); }, [&] { return row.whole; }), RunTimeError);
    EXPECT_EQ(refusal_of(state, &TransactionState::require_not_lost), row.refusal);
    EXPECT_EQ(state.is_open(), row.open && row.whole);
    EXPECT_EQ(state.is_none(), !row.open);
  }
}

TEST(TransactionState, WhatABodyReturnsComesBack) {
  TransactionState state;
  EXPECT_EQ(state.around([] { return 7; }, [] { return false; }), 7);
}

TEST(TransactionState, ChangesCountInTheOpenTransactionOnly) {
  TransactionState state;
  state.changed();
  EXPECT_FALSE(state.has_changes());
  state.opened();
  EXPECT_FALSE(state.has_changes()) << "what was changed before is not of this one";
  state.changed();
  EXPECT_TRUE(state.has_changes());
  state.lost("deadlock");
  EXPECT_FALSE(state.has_changes());
  state.ended();
  state.opened();
  EXPECT_FALSE(state.has_changes());
}

TEST(TransactionState, OnlyWhatWasBegunIsCommitted) {
  TransactionState state;
  EXPECT_EQ(refusal_of(state, &TransactionState::require_begun), "there is no transaction to commit");
  state.opened();
  EXPECT_EQ(refusal_of(state, &TransactionState::require_begun), "");
  state.lost("deadlock");
  EXPECT_EQ(refusal_of(state, &TransactionState::require_begun), "") << "the reason is that it is lost";
}

}  // namespace
}  // namespace dorvane
