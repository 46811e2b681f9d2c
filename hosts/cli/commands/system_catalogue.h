#pragma once

#include "hosts/cli/commands.h"

// The commands about systems that are kept in the archive.

namespace vestara::host {

ExitCode run_system_save(const SystemSaveOptions& options, const Context& context);
ExitCode run_system_list(const SystemFilter& options, const Context& context);
ExitCode run_system_show(const SystemShowOptions& options, const Context& context);
ExitCode run_system_convert(const SystemConvertOptions& options, const Context& context);
ExitCode run_system_delete(const SystemDeleteOptions& options, const Context& context);

}  // namespace vestara::host
