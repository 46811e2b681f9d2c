#include "hosts/vestara/import_progress.h"

#include <span>

#include "automation/coercion.h"
#include "automation/member.h"

namespace vestara::host {

ImportProgress::ImportProgress(cLotto& lotto, std::ostream& err) : lotto_(lotto), bar_(err, "import") {
  if (!bar_.is_shown()) return;
  cookie_ = lotto_.events().connect([this](const automation::Event& event, std::span<const automation::Variant> given) {
    if (event.name != "LoadingProgress") return;
    bar_.show(static_cast<uint64_t>(automation::to_long(given[0])),
              static_cast<uint64_t>(automation::to_long(given[1])));
  });
}

ImportProgress::~ImportProgress() {
  if (cookie_ != 0) lotto_.events().disconnect(cookie_);
}

}  // namespace vestara::host
