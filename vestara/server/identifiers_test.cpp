#include <gtest/gtest.h>

#include <string>

#include "automation/classes/uuid.h"

namespace vestara {
namespace {

// These identify the classes on every machine that has them registered: they must never change.
TEST(Identifiers, NamesOfTheSurfaceKeepTheirs) {
  const struct {
    std::string name;
    std::string uuid;
  } rows[] = {{"Vestara", "7a5907e7-ccf2-5bae-a6cf-8f9209f6abbb"},
              {"Vestara.cLotto", "f0b69009-c135-5bac-a0d1-35a405b8da6d"},
              {"Vestara.__cLotto", "b21c8a1e-61b2-50d6-8ba1-22b6e2160d7c"},
              {"Dorvane.DbConnector", "cd1145bc-57c4-5f2a-95f4-bfa580b17f3d"}};
  for (const auto& row : rows) EXPECT_EQ(automation::uuid_text(automation::uuid_of(row.name)), row.uuid) << row.name;
}

}  // namespace
}  // namespace vestara
