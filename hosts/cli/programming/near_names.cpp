#include "hosts/cli/programming/near_names.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include "automation/text.h"

namespace vestara::host {
namespace {

/// Letters to put in, take out or exchange.
size_t distance(std::string_view left, std::string_view right) {
  std::vector<size_t> row(right.size() + 1);
  std::iota(row.begin(), row.end(), size_t{0});
  for (const char letter : left) {
    size_t diagonal = row[0]++;
    for (size_t j = 0; j < right.size(); ++j) {
      const size_t exchanged = diagonal + (letter == right[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({exchanged, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

bool is_near(const std::string& wanted, const std::string& name) {
  constexpr size_t shortest_part = 3;
  if (wanted.size() >= shortest_part && name.find(wanted) != std::string::npos) return true;
  return distance(wanted, name) <= std::max<size_t>(1, wanted.size() / 4);
}

}  // namespace

std::string near_names(std::string_view wanted, const std::vector<std::string>& names) {
  const std::string lower = automation::lower_case(wanted);
  std::vector<std::string> near;
  std::copy_if(names.begin(), names.end(), std::back_inserter(near),
               [&](const std::string& name) { return is_near(lower, automation::lower_case(name)); });
  return name_list(near);
}

std::string name_list(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list.append(list.empty() ? "" : ", ").append(name);
  return list;
}

}  // namespace vestara::host
