#include "hosts/cli/commands/draw_rows.h"

#include "vestara/foundation/message_text.h"

namespace vestara::host {

std::string rows_in_words(int32_t rows, int32_t day) {
  return "the " + counted(static_cast<size_t>(rows), "row") + " of " + shown_day(day);
}

}  // namespace vestara::host
