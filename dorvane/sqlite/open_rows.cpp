#include "dorvane/sqlite/open_rows.h"

#include <utility>

#include "records/static_recordset.h"

namespace dorvane::sqlite {

OpenRows::Ticket::Ticket(OpenRows& open, records::StaticRecordSet& set) : open_(open), set_(set) {
  open_.sets_.push_back(&set_);
}

OpenRows::Ticket::~Ticket() { std::erase(open_.sets_, &set_); }

void OpenRows::complete() noexcept {
  for (records::StaticRecordSet* const set : std::exchange(sets_, {})) set->complete();
}

}  // namespace dorvane::sqlite
