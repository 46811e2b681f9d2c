#pragma once  // installed

#include <string>
#include <string_view>
#include <vector>

#include "vestara/foundation/export.h"
#include "vestara/study/number_set.h"

namespace vestara::study {

/// The sets of a family that players know, by its name in any case:
///   decine           1-10, 11-20 … 81-90, called so
///   decine-popolari  1-9, 10-19 … 80-89, called so; 90 is in none
///   cadenze          the same last digit, called "1" … "9", "0"
///   figure           the same digital root, called "1" … "9"
///   gemelli          11,22 … 88, one set
///   vertibili        a number and its digits the other way round: 12,21 … 78,87
///   diametrali       45 apart: 1,46 … 45,90
/// None when there is no such family.
VESTARA_API std::vector<NamedNumbers> set_family(std::string_view name);

/// The families, joined by ", ", for messages.
std::string family_names();

}  // namespace vestara::study
