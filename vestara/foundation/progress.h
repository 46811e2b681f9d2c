#pragma once

#include <cstdint>
#include <functional>

namespace vestara {

/// Is told how far a long piece of work is, now and then: so many steps of so many. What it throws ends the work, which
/// then leaves nothing behind.
using Progress = std::function<void(uint64_t done, uint64_t steps)>;

}  // namespace vestara
