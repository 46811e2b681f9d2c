#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "automation/c_abi/automation.h"
#include "automation/collection.h"
#include "automation/error.h"
#include "automation/event_source.h"
#include "automation/member.h"
#include "automation/registry.h"
#include "tests/c_abi/echo.h"
#include "tests/c_abi/failing_memory.h"

// What the C interface says about classes, and what it does when there is no memory.

namespace automation {
namespace {

using c_abi::CAbi;
using c_abi::Value;

std::string text_of(const au_value& value) {
  return value.kind == AU_TEXT ? std::string(value.as.text.bytes, value.as.text.length) : std::string();
}

/// Hands out a collection and tells a long text and an array, while there is memory.
class Teller final : public Object {
 public:
  static const ClassDescription& surface();
  const ClassDescription& description() const override { return surface(); }
  EventSource* event_source() override { return &source_; }

  Ref<Collection> List() const { return make<Collection>(); }
  void Tell(int32_t pieces) {
    Array array(VariantKind::empty, {{0, 1}});
    array.items()[0] = Variant(std::string(100, 'e'));
    const std::vector<Variant> arguments{Variant(std::string(100, 't')), Variant(array)};
    const failing_memory::After after(pieces);
    source_.raise(told, arguments);
  }

 private:
  static constexpr Event told{.id = 1, .name = "Told"};
  EventSource source_;
};

constexpr auto teller_members =
    member_rows(Rows<Teller>::read_only<&Teller::List>(1, "List", "A collection."),
                Rows<Teller>::method<&Teller::Tell>(2, "Tell", "Tells.", parameter("lPieces")));

const ClassDescription& Teller::surface() {
  static constexpr ClassDescription surface{
      .library = "Tests", .name = "cTeller", .interface_name = "_cTeller", .members = teller_members};
  return surface;
}

const HandedOut<Collection> collection;
const ClassRegistrar<Teller> teller;

class Classes : public testing::Test {
 protected:
  Classes() {
    EXPECT_EQ(au_create_object("Tests.cTeller", &object_), AU_OK);
    EXPECT_EQ(au_call(object_, "List", AU_GET, nullptr, 0, &list_), AU_OK);
  }
  ~Classes() override { au_release(object_); }

  au_object* object_ = nullptr;
  Value list_;
};

TEST_F(Classes, AnObjectNamesItsClass) {
  EXPECT_STREQ(au_class_name(object_), "Tests.cTeller");
  EXPECT_STREQ(au_class_name(list_.as.object), "Automation.Collection");
  au_object* other = nullptr;
  ASSERT_EQ(au_create_object("Tests.cTeller", &other), AU_OK);
  EXPECT_EQ(au_class_name(other), au_class_name(object_)) << "one pointer for all objects of a class";
  Value first, second, list;
  ASSERT_EQ(au_set_object(&first, object_), AU_OK);
  ASSERT_EQ(au_set_object(&second, other), AU_OK);
  ASSERT_EQ(au_set_object(&list, list_.as.object), AU_OK);
  EXPECT_NE(first.as.described.of_class, nullptr);
  EXPECT_EQ(first.as.described.of_class, second.as.described.of_class);
  EXPECT_NE(first.as.described.of_class, list.as.described.of_class);
  au_release(other);
}

TEST_F(CAbi, AnObjectOfTheHostHasNoClassHere) {
  EXPECT_EQ(au_class_name(object_), nullptr);
  EXPECT_EQ(au_class_name(nullptr), nullptr);
  int32_t index = 7;
  EXPECT_EQ(au_first_item(object_, &index), AU_RAISED);
  EXPECT_EQ(index, 7);
}

TEST_F(Classes, ACollectionSaysItsFirstIndex) {
  int32_t index = -1;
  ASSERT_EQ(au_first_item(list_.as.object, &index), AU_OK);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(au_first_item(object_, &index), AU_RAISED);
  EXPECT_EQ(au_last_error().number, 438);
  EXPECT_EQ(au_first_item(list_.as.object, nullptr), AU_BAD_ARGUMENT);
  EXPECT_EQ(au_first_item(nullptr, &index), AU_BAD_HANDLE);
}

TEST_F(Classes, TheSurfaceSaysHowOneComesByAnObjectAndHowACollectionCounts) {
  Value json;
  ASSERT_EQ(au_describe(object_, &json), AU_OK);
  EXPECT_NE(text_of(json).find(R"("creatable":true,"first_item":null)"), std::string::npos) << text_of(json);
  ASSERT_EQ(au_describe(list_.as.object, &json), AU_OK);
  EXPECT_NE(text_of(json).find(R"("creatable":false,"first_item":1)"), std::string::npos) << text_of(json);
}

TEST_F(Classes, AreListedTheHandedOutOnesLast) {
  std::vector<std::string> listed;
  Value json;
  for (size_t place = 0; au_class_at(place, &json) == AU_OK; ++place) listed.push_back(text_of(json));
  EXPECT_EQ(au_last_error().number, 9);
  ASSERT_EQ(listed.size(), described_classes().size());
  bool created = true;
  for (const std::string& surface : listed) {
    const bool is_creatable = surface.find(R"("creatable":true)") != std::string::npos;
    EXPECT_TRUE(created || !is_creatable) << surface;
    created = is_creatable;
  }
  EXPECT_FALSE(created) << "the collection is among them";
  EXPECT_EQ(au_class_at(0, nullptr), AU_BAD_ARGUMENT);
}

TEST_F(Classes, AnEventWithoutMemoryForItsArgumentsLeavesNothingBehind) {
  int32_t cookie = 0;
  int heard = 0;
  const auto sink = [](void* host, int32_t, const char*, const au_value* arguments, size_t count) -> au_status {
    EXPECT_EQ(count, 2U);
    EXPECT_EQ(arguments[0].kind, AU_TEXT);
    EXPECT_EQ(arguments[1].kind, AU_ARRAY);
    ++*static_cast<int*>(host);
    return AU_OK;
  };
  ASSERT_EQ(au_advise(object_, sink, &heard, &cookie), AU_OK);
  // Each piece more gets further, until the event arrives. What an attempt left behind the leak check would find.
  int attempts = 0;
  for (; heard == 0 && attempts < 100; ++attempts) {
    au_value pieces = c_abi::number(AU_LONG, attempts);
    au_call(object_, "Tell", AU_METHOD, &pieces, 1, nullptr);
  }
  EXPECT_EQ(heard, 1);
  EXPECT_GT(attempts, 4) << "the values, the array and its parts";
  EXPECT_EQ(au_unadvise(object_, cookie), AU_OK);
}

TEST(CAbiMemory, AnErrorThatThereIsNoMemoryForIsError7) {
  const std::string text(100, 't');
  au_raise(77, text.c_str(), text.c_str());
  EXPECT_EQ(au_last_error().number, 77);
  EXPECT_EQ(au_last_error().description, text);
  for (const int pieces : {0, 1}) {
    {
      const failing_memory::After after(pieces);
      au_raise(78, text.c_str(), text.c_str());
    }
    EXPECT_EQ(au_last_error().number, 7) << pieces;
  }
}

}  // namespace
}  // namespace automation
