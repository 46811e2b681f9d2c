#include "hosts/cli/archive/required_draw.h"

#include "hosts/cli/failure.h"
#include "vestara/foundation/message_text.h"
#include "vestara/keeping/archive_counts.h"

namespace vestara::host {

int32_t some_rows_of_day(const Archive& archive, int32_t day) {
  const int32_t rows = rows_of_day(archive, day);
  if (rows != 0) return rows;
  throw Failure(FailureKind::nothing_found,
                "the archive holds no draw of " + shown_day(day) + "; vestara draw show --back 1 shows the newest");
}

}  // namespace vestara::host
