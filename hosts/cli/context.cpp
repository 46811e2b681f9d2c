#include "hosts/cli/context.h"

#include "hosts/cli/archive/archive_url.h"

namespace vestara::host {

void Context::require_consent(Consent consent, const std::string& change) const {
  host::require_consent(consent, change, in, err);
}

std::string Context::url() const { return archive_url(settings.database); }

void require_answered(const ArchiveSession& session, bool has_answer) {
  if (!has_answer || !session.connector()->LastError().empty()) session.fail("the archive cannot be read");
}

}  // namespace vestara::host
