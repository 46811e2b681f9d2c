#include "hosts/cli/commands/commands.h"

#include <array>

namespace vestara::host {

extern const Command import_command;
extern const Command generate_command;
extern const Command export_command;
extern const Command draw_command;
extern const Command search_command;
extern const Command distances_command;
extern const Command probability_command;
extern const Command delays_command;
extern const Command frequencies_command;
extern const Command table_command;
extern const Command gaps_command;
extern const Command saved_command;
extern const Command combinations_command;
extern const Command system_command;
extern const Command archive_command;
extern const Command copy_command;
extern const Command backup_command;
extern const Command restore_command;
extern const Command doctor_command;
extern const Command describe_command;
extern const Command call_command;
extern const Command register_command;
extern const Command unregister_command;
extern const Command classes_command;

std::span<const Command* const> commands() {
  static constexpr std::array listed{
      &import_command,    &generate_command,    &export_command,       &draw_command,        &search_command,
      &distances_command, &probability_command, &delays_command,       &frequencies_command, &table_command,
      &gaps_command,      &saved_command,       &combinations_command, &system_command,      &archive_command,
      &copy_command,      &backup_command,      &restore_command,      &doctor_command,      &describe_command,
      &call_command,      &register_command,    &unregister_command,   &classes_command,
  };
  return listed;
}

}  // namespace vestara::host
