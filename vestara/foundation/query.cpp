#include "vestara/foundation/query.h"

#include "automation/text.h"

namespace vestara {

automation::RunTimeError statement_refused(std::string_view what) {
  return automation::failure(automation::FailureKind::database,
                             automation::concatenated({"the database refused ", what, "; its connector knows why"}));
}

}  // namespace vestara
