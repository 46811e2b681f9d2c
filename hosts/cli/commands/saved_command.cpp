#include <array>

#include "hosts/cli/command.h"

namespace vestara::host {

extern const Command saved_list_command;
extern const Command saved_show_command;
extern const Command saved_save_command;
extern const Command saved_run_command;
extern const Command saved_delete_command;

namespace {
constexpr std::array saved_commands{&saved_list_command, &saved_show_command, &saved_save_command, &saved_run_command,
                                    &saved_delete_command};
}  // namespace

extern const Command saved_command{"saved", Group::questions, "Keep searches and repeat them", "vestara saved run 1",
                                   nullptr, saved_commands};

}  // namespace vestara::host
