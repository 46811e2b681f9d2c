#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace testing_support {

struct LogEntry {
  std::string time;
  std::string label;
  std::string description;
  int32_t number = 0;
};

/// Leads the error log into a folder of its own as long as it lives.
class LogCapture {
 public:
  LogCapture();
  ~LogCapture();

  std::string folder() const { return folder_.path().string(); }
  std::string bytes() const;
  /// The entries so far. A byte that belongs to no entry fails the test.
  std::vector<LogEntry> entries() const;
  /// "label number" of every entry so far, which are then forgotten.
  std::vector<std::string> take();

 private:
  TemporaryFolder folder_;
};

}  // namespace testing_support
