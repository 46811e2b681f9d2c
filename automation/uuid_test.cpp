#include "automation/uuid.h"

#include <gtest/gtest.h>

#include <string>

namespace automation {
namespace {

constexpr Uuid dns{0x6b, 0xa7, 0xb8, 0x10, 0x9d, 0xad, 0x11, 0xd1, 0x80, 0xb4, 0x00, 0xc0, 0x4f, 0xd4, 0x30, 0xc8};

struct Named {
  std::string name;
  std::string uuid;
};

// Computed by Python's uuid.uuid5.
TEST(Uuid, IsThatOfItsName) {
  EXPECT_EQ(uuid_text(dns), "6ba7b810-9dad-11d1-80b4-00c04fd430c8");
  for (const Named& row : {Named{"www.example.com", "2ed6657d-e927-568b-95e1-2665a8aea6a2"},
                           Named{"", "4ebd0208-8328-5d69-8c44-ec50939c0967"},
                           Named{std::string(200, 'a'), "fe30bfa6-ef90-59b3-b108-118411d0f0ab"}})
    EXPECT_EQ(uuid_text(uuid_of(row.name, dns)), row.uuid) << row.name;
}

// These identify the classes on every machine that has them registered: they must never change.
TEST(Uuid, NamesOfTheSurfaceKeepTheirs) {
  for (const Named& row : {Named{"Vestara", "7a5907e7-ccf2-5bae-a6cf-8f9209f6abbb"},
                           Named{"Vestara.cLotto", "f0b69009-c135-5bac-a0d1-35a405b8da6d"},
                           Named{"Vestara.__cLotto", "b21c8a1e-61b2-50d6-8ba1-22b6e2160d7c"},
                           Named{"Dorvane.DbConnector", "cd1145bc-57c4-5f2a-95f4-bfa580b17f3d"}})
    EXPECT_EQ(uuid_text(uuid_of(row.name)), row.uuid) << row.name;
}

}  // namespace
}  // namespace automation
