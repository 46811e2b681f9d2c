#include "dorvane/transaction_state.h"

namespace dorvane {

using automation::RunTimeError;
using automation::unspecified_failure;

void TransactionState::require_not_lost() const {
  if (at_ == At::lost)
    throw RunTimeError(unspecified_failure, "the transaction is lost (" + reason_ + "); roll back or begin again");
}

void TransactionState::require_begun() const {
  if (at_ == At::none) throw RunTimeError(unspecified_failure, "there is no transaction to commit");
}

}  // namespace dorvane
