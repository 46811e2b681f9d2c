#include "hosts/cli/programming/near_names.h"

#include <gtest/gtest.h>

namespace vestara::host {
namespace {

TEST(NearNames, PartsAndSlips) {
  const std::vector<std::string> names{"Ambi", "Ambate", "GetMaxDateStorico", "GetMinDateStorico", "DbType"};
  struct Row {
    const char* wanted;
    const char* near;
  };
  for (const Row& row : {Row{"GetMaxDate", "GetMaxDateStorico"},
                         {"datestorico", "GetMaxDateStorico, GetMinDateStorico"},
                         {"GetMadDateStorico", "GetMaxDateStorico, GetMinDateStorico"},
                         {"ambo", "Ambi"},
                         {"amb", "Ambi, Ambate"},
                         {"DTyp", ""},
                         {"DbTipe", "DbType"},
                         {"nonsense", ""},
                         {"", ""}})
    EXPECT_EQ(near_names(row.wanted, names), row.near) << row.wanted;
}

}  // namespace
}  // namespace vestara::host
