#pragma once

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "automation/text.h"
#include "hosts/cli/cli.h"

// The program inside a unit test.

namespace vestara::host {

struct Outcome {
  int code;
  std::string out;
  std::string err;
};

/// Arguments between blanks; "@/" stands for the folder. Nobody is there to answer.
inline Outcome run_in_process(std::string_view line, const std::string& folder) {
  std::vector<std::string> words{"vestara"};
  for (const std::string_view word : automation::split(line, ' ')) {
    words.emplace_back(word);
    if (const auto place = words.back().find("@/"); place != std::string::npos) words.back().replace(place, 1, folder);
  }
  std::vector<const char*> arguments;
  arguments.reserve(words.size());
  for (const std::string& word : words) arguments.push_back(word.c_str());
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream err;
  const int code = run(static_cast<int>(arguments.size()), arguments.data(), in, out, err);
  return {code, out.str(), err.str()};
}

}  // namespace vestara::host
