#include "hosts/cli/programming/known_classes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vestara::host {
namespace {

using automation::Member;
using automation::RegisteredClass;

bool has_member(const RegisteredClass& known, std::string_view name) {
  const auto rows = known.description->members;
  return std::any_of(rows.begin(), rows.end(), [&](const Member& row) { return row.name == name; });
}

TEST(KnownClasses, AreThoseOfBothLibrariesSorted) {
  std::vector<std::string> created;
  std::vector<std::string> handed_out;
  for (const RegisteredClass& known : known_classes())
    (known.is_creatable() ? created : handed_out).push_back(known.description->identifier());
  EXPECT_EQ(handed_out, (std::vector<std::string>{"Automation.Collection", "Dorvane.Field", "Dorvane.Fields",
                                                  "Dorvane.Recordset"}));
  EXPECT_EQ(created.front(), "Dorvane.DbConnector");
  EXPECT_TRUE(std::find(created.begin(), created.end(), "Vestara.cLotto") != created.end());
}

// Hosts walk what has a first item: no class with Count and Item may forget to say its own.
TEST(KnownClasses, WhatIsCountedSaysWhereItBegins) {
  for (const RegisteredClass& known : known_classes())
    EXPECT_EQ(known.description->first_item.has_value(), has_member(known, "Count") && has_member(known, "Item"))
        << known.description->identifier();
}

}  // namespace
}  // namespace vestara::host
