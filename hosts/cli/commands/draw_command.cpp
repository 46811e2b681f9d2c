#include <array>

#include "hosts/cli/command.h"

namespace vestara::host {

extern const Command draw_show_command;
extern const Command draw_save_command;
extern const Command draw_delete_command;

namespace {
constexpr std::array draw_commands{&draw_show_command, &draw_save_command, &draw_delete_command};
}  // namespace

extern const Command draw_command{"draw",  Group::draws, "Show, store or delete one draw", "vestara draw show --back 1",
                                  nullptr, draw_commands};

}  // namespace vestara::host
