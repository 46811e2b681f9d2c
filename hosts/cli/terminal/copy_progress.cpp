#include "hosts/cli/terminal/copy_progress.h"

#include "hosts/cli/failure.h"
#include "hosts/cli/terminal/interruption.h"
#include "hosts/cli/terminal/progress_bar.h"

namespace vestara::host {

std::vector<CopiedTable> copy_archive(const Archive& from, const Archive& to, HeldRows held, std::ostream& err) {
  ProgressBar bar(err, "copy");
  return vestara::copy_archive(from, to, held, [&](uint64_t done, uint64_t steps) {
    bar.show(done, steps);
    if (Interruption::requested())
      throw Failure(FailureKind::interrupted, "interrupted, the archive copied to is what it was");
  });
}

}  // namespace vestara::host
