#include "hosts/cli/output/system_output.h"

#include <algorithm>

#include "automation/text/shown_text.h"
#include "hosts/cli/failure.h"
#include "hosts/cli/output/output_file.h"
#include "hosts/cli/terminal/interruption.h"
#include "vestara/files/file_source.h"
#include "vestara/foundation/combination_lines.h"

namespace vestara::host {

SystemFile read_system_file(const std::string& path, std::ostream& err) {
  SystemFile file = vestara::read_system_file(path);
  if (!file.odd_lengths.empty())
    err << "vestara: warning: " << automation::shown_text(source_name(path)) << " has combinations of different lengths"
        << listed_notes(file.odd_lengths) << "\n";
  return file;
}

void write_system_file(const std::string& path, std::ostream& out, std::string_view combinations) {
  constexpr size_t block_size = 65536;
  OutputFile file(path, out);
  std::string block;
  while (!combinations.empty() && file.is_open()) {
    const std::string_view line = combinations.substr(0, combinations.find(line_break));
    combinations.remove_prefix(std::min(line.size() + line_break.size(), combinations.size()));
    block.append(line).append("\n");
    if (block.size() < block_size && !combinations.empty()) continue;
    if (Interruption::requested()) throw Failure(FailureKind::interrupted, "interrupted while the file was written");
    file.write(block);
    block.clear();
  }
  file.finish();
}

}  // namespace vestara::host
