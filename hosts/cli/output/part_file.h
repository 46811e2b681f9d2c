#pragma once

#include <memory>
#include <string>

#include "hosts/cli/output/removed_on_signal.h"

namespace vestara::host {

/// A file in the making, in the folder of the file it is to become; when that one is a link, in the folder of the file
/// that it leads to. Its name cannot be guessed, and nobody else can read it. It is removed with this object or by a
/// signal that ends the process. A killed process leaves it, and the next part file in that folder removes it.
class PartFile {
 public:
  /// Throws std::system_error when it cannot be made.
  explicit PartFile(const std::string& target);
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;
  ~PartFile();

  int descriptor() const { return descriptor_; }
  const std::string& path() const { return path_; }

  /// Puts what was written in the target's place, on the disk: a new file, or one with mode, owner and every link of
  /// the one that was there. Of a file that can only keep these by being written into, the old contents are lost once
  /// the system fails in the middle of that; every other failure leaves it as it was. Throws std::system_error.
  void become_target();

 private:
  bool try_to_open();
  void take_name(const std::string& name);

  std::string target_;
  std::string path_;
  int descriptor_ = -1;
  std::unique_ptr<RemovedOnSignal> watch_;
};

}  // namespace vestara::host
