#include "vestara/draws/wheel_names.h"

#include <gtest/gtest.h>

#include <string>

#include "automation/text.h"
namespace vestara {
namespace {

TEST(WheelNames, MapsEveryVariant) {
  struct Row {
    const char* name;
    int8_t wheel;  ///< 0: none
  };
  for (const Row& row : {Row{"BA", 1},
                         {"ca", 2},
                         {"Fi", 3},
                         {"GE", 4},
                         {"MI", 5},
                         {"NA", 6},
                         {"PA", 7},
                         {"RM", 8},
                         {"RO", 8},
                         {"ro", 8},
                         {"TO", 9},
                         {"VE", 10},
                         {"RN", 11},
                         {"NZ", 11},
                         {"nz", 11},
                         {"NAZIONALE", 11},
                         {"Roma", 8},
                         {"BARI", 1},
                         {"cagliari", 2},
                         {"Firenze", 3},
                         {"genova", 4},
                         {"MILANO", 5},
                         {"Napoli", 6},
                         {"palermo", 7},
                         {"torino", 9},
                         {" Venezia ", 10},
                         {"", 0},
                         {"B", 0},
                         {"XX", 0},
                         {"BAR", 0},
                         {"Ruota Nazionale", 11},
                         {"12", 0},
                         {"BA,CA", 0},
                         {"B\xC0", 0}}) {
    EXPECT_EQ(wheel_named(row.name).value_or(0), row.wheel) << row.name;
  }
}

TEST(WheelNames, CodesAndNamesLeadBack) {
  std::string codes;
  for (int32_t wheel = 1; wheel <= 11; ++wheel) {
    EXPECT_EQ(wheel_named(wheel_code(wheel)), wheel);
    EXPECT_EQ(wheel_named(wheel_name(wheel)), wheel);
    codes.append(codes.empty() ? "" : ", ").append(wheel_code(wheel));
  }
  EXPECT_EQ(codes, wheel_choices());
  EXPECT_EQ(codes, "BA, CA, FI, GE, MI, NA, PA, RM, TO, VE, RN");
  EXPECT_EQ(city_codes(), "BA,CA,FI,GE,MI,NA,PA,RM,TO,VE");
}

}  // namespace
}  // namespace vestara
