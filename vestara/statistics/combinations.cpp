#include "vestara/statistics/combinations.h"

#include "automation/int16.h"
#include "automation/values/doubles.h"

namespace vestara {

double combination_count(int16_t items, int16_t chosen) {
  double product = 0;
  double factorial = 1;
  automation::Int16 factor = items;
  for (int32_t i = 1; i <= chosen; ++i) {
    product = automation::finite(i == 1 ? factor.value() : product * factor.value());
    --factor;
    factorial = automation::finite(factorial * i);
  }
  return product / factorial;
}

}  // namespace vestara
