#include "dorvane/transaction_state.h"

namespace dorvane {

using automation::failure;
using automation::FailureKind;

void TransactionState::require_not_lost() const {
  if (at_ == At::lost)
    throw failure(FailureKind::database, "the transaction is lost (" + reason_ + "); roll back or begin again");
}

void TransactionState::require_begun() const {
  if (at_ == At::none) throw failure(FailureKind::database, "there is no transaction to commit");
}

}  // namespace dorvane
