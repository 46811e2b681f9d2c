#pragma once

#include "hosts/cli/options/system_arguments.h"

// What each command behind `vestara system` is asked for, from the texts given. Failure (usage).

namespace vestara::host {

SetQuestion system_generate_options(const SystemArguments& given);
RandomQuestion system_random_options(const SystemArguments& given);
SystemIntegralOptions system_integral_options(const SystemArguments& given);
SystemSaveOptions system_save_options(const SystemArguments& given);
SystemFilter system_list_options(const SystemArguments& given);
SystemShowOptions system_show_options(const SystemArguments& given);
SystemConvertOptions system_convert_options(const SystemArguments& given);
SystemDeleteOptions system_delete_options(const SystemArguments& given);

/// The word that stands for a set.
std::string set_name(NumberSet set);

}  // namespace vestara::host
