#pragma once

#include <ostream>
#include <string>

#include "hosts/cli/output/output_file.h"
#include "vestara/files/draw_file_writer.h"

namespace vestara::host {

/// Draws on their way into a file or a stream, block by block.
class DrawOutput {
 public:
  /// An empty path is `out`.
  DrawOutput(const std::string& path, std::ostream& out, DrawFileWriter writer);

  /// False when the output takes no more.
  bool add(const DrawRow& row);
  void finish();

 private:
  void flush();

  OutputFile file_;
  DrawFileWriter writer_;
  std::string block_;
};

}  // namespace vestara::host
