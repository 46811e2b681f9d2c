#include <string>
#include <vector>

#include "automation/text.h"
#include "bench/archive.h"
#include "bench/harness.h"
#include "vestara/systems/systems.h"

// integral: C(30,6) = 593,775 combinations as text, against six nested loops that write the same bytes.

namespace {

std::string nested_loops(const std::vector<std::string_view>& n) {
  std::string text;
  const size_t count = n.size();
  for (size_t a = 0; a < count; ++a)
    for (size_t b = a + 1; b < count; ++b)
      for (size_t c = b + 1; c < count; ++c)
        for (size_t d = c + 1; d < count; ++d)
          for (size_t e = d + 1; e < count; ++e)
            for (size_t f = e + 1; f < count; ++f) {
              for (const size_t place : {a, b, c, d, e}) text.append(n[place]).append(",");
              text.append(n[f]).append("\r\n");
            }
  text.resize(text.size() - 2);
  return text;
}

}  // namespace

int main() {
  const std::string numbers = "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,25,26,27,28,29,30";
  const vestara::cSistemi systems;
  if (nested_loops(automation::split(numbers, ',')) != systems.CombinazioniIntegraliString(numbers, 6))
    bench::stop("the two texts differ");
  size_t bytes = 0;
  bench::compare(
      "integral, C(30,6) as text", 3.0, [&] { bytes += nested_loops(automation::split(numbers, ',')).size(); },
      [&] { bytes += systems.CombinazioniIntegraliString(numbers, 6).size(); });
  return bytes == 0 ? 1 : 0;
}
