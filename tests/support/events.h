#pragma once

#include <string>
#include <vector>

#include "automation/event_source.h"

namespace testing_support {

/// A sink that writes "LoadingProgress 1000 2500" into `calls`, which several doubles may share.
automation::EventSource::Sink event_writer(std::vector<std::string>& calls);

/// Writes "yield" into `calls` whenever a loop yields, as long as it lives.
class YieldWriter {
 public:
  explicit YieldWriter(std::vector<std::string>& calls);
  ~YieldWriter();
  YieldWriter(const YieldWriter&) = delete;
  YieldWriter& operator=(const YieldWriter&) = delete;
};

/// Counts yields as long as it lives, and raises an error at each one behind `patience`.
class ImpatientHost {
 public:
  ImpatientHost(int32_t patience, int32_t error);
  ~ImpatientHost();
  ImpatientHost(const ImpatientHost&) = delete;
  ImpatientHost& operator=(const ImpatientHost&) = delete;
  int32_t yields() const { return yields_; }

 private:
  int32_t yields_ = 0;
};

}  // namespace testing_support
