#include "automation/classes/uuid.h"

#include <gtest/gtest.h>

#include <string>

#include "automation/classes/product.h"

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

TEST(Uuid, NamesOfTheSurfaceAreInTheProductsNameSpace) {
  EXPECT_EQ(uuid_text(uuid_of("www.example.com")), "2ed6657d-e927-568b-95e1-2665a8aea6a2");
}

}  // namespace

/// The product that these tests are.
const Product& product() {
  static constexpr Product tests{.version = "1.0", .library_folder = "TESTS_LIBRARY_DIR", .name_space = dns};
  return tests;
}

}  // namespace automation
