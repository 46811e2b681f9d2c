#include "vestara/keeping/checks/schema_checks.h"

#include <algorithm>

namespace vestara {
namespace {

bool lacks_of(const std::vector<SchemaGap>& gaps, const ArchiveTable& table) {
  return std::any_of(gaps.begin(), gaps.end(), [&](const SchemaGap& gap) {
    return gap.table == table.name && (gap.kind == SchemaGap::Kind::table || gap.kind == SchemaGap::Kind::column);
  });
}

}  // namespace

SchemaFacts check_schema(const Archive& archive) {
  SchemaFacts facts;
  if (auto gaps = archive.connector()->SchemaGaps())
    facts.gaps = std::move(*gaps);
  else
    facts.refusal = archive.reason();
  for (const ArchiveTable& table : archive_tables())
    if (!lacks_of(facts.gaps, table) && !archive.can_read(table))
      facts.unreadable.push_back({table.name, archive.reason()});
  return facts;
}

}  // namespace vestara
