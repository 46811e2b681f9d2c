#pragma once

#include <string>

#include "hosts/cli/checks/finding.h"
#include "vestara/keeping/archive.h"

namespace vestara::host {

/// What the engine itself finds wrong in the archive's file: one finding with the first of its sentences.
Findings file_findings(const Archive& archive);

/// Failure (database) with the reason when the file is damaged or its tables cannot be read. `name` is how a message
/// calls it.
void require_sound(const Archive& archive, const std::string& name);

/// Failure (database) naming what is missing when the five tables cannot be read. `purpose` reads as in "copied from".
void require_tables(const Archive& archive, const std::string& name, const std::string& purpose);

}  // namespace vestara::host
