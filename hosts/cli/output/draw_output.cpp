#include "hosts/cli/output/draw_output.h"

namespace vestara::host {

DrawOutput::DrawOutput(const std::string& path, std::ostream& out, DrawFileWriter writer)
    : file_(path, out), writer_(std::move(writer)) {
  writer_.begin(block_);
}

bool DrawOutput::add(const DrawRow& row) {
  constexpr size_t block_size = 65536;
  writer_.add(block_, row);
  if (block_.size() >= block_size) flush();
  return file_.is_open();
}

void DrawOutput::flush() {
  file_.write(block_);
  block_.clear();
}

void DrawOutput::finish() {
  flush();
  file_.finish();
}

}  // namespace vestara::host
