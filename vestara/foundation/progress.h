#pragma once

#include <cstdint>
#include <functional>

namespace vestara {

/// Called now and then during a long piece of work: `done` of `steps` steps are over. An error that it throws ends the
/// work, which is then taken back.
using Progress = std::function<void(uint64_t done, uint64_t steps)>;

}  // namespace vestara
