#include <array>

#include "hosts/cli/command.h"

namespace vestara::host {

extern const Command system_generate_command;
extern const Command system_random_command;
extern const Command system_integral_command;
extern const Command system_save_command;
extern const Command system_list_command;
extern const Command system_show_command;
extern const Command system_convert_command;
extern const Command system_delete_command;

namespace {
constexpr std::array system_commands{&system_generate_command, &system_random_command, &system_integral_command,
                                     &system_save_command,     &system_list_command,   &system_show_command,
                                     &system_convert_command,  &system_delete_command};
}  // namespace

extern const Command system_command{
    "system", Group::bets,    "Make betting systems and keep them", "vestara system generate twins",
    nullptr,  system_commands};

}  // namespace vestara::host
