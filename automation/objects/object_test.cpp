#include "automation/object.h"

#include <gtest/gtest.h>

#include "automation/member.h"
#include "tests/support/values.h"

namespace automation {
namespace {

constexpr ClassDescription counted{.library = "Tests", .name = "Counted"};

/// Counts the living ones.
class Counted : public Object {
 public:
  explicit Counted(int& alive) : alive_(alive) { ++alive_; }
  ~Counted() override { --alive_; }
  const ClassDescription& description() const override { return counted; }

 private:
  int& alive_;
};
class Special final : public Counted {
 public:
  using Counted::Counted;
};

TEST(Ref, LastReferenceEndsTheObject) {
  int alive = 0;
  {
    Ref<Counted> first = make<Counted>(alive);
    Ref<Counted> second = first;
    Ref<Object> base = second;
    EXPECT_TRUE(first == second);
    first = nullptr;
    EXPECT_FALSE(first);
    second = {};
    EXPECT_EQ(alive, 1);
    const Variant value(base);
    base = {};
    EXPECT_EQ(alive, 1);
    const Variant copy = value;
  }
  EXPECT_EQ(alive, 0);
}

TEST(Ref, MovesKeepTheCount) {
  int alive = 0;
  Ref<Counted> first = make<Counted>(alive);
  Ref<Counted> second = std::move(first);
  Ref<Object> base = std::move(second);
  EXPECT_TRUE(base);
  base = Ref<Object>(base);
  EXPECT_EQ(alive, 1);
  base = nullptr;
  EXPECT_EQ(alive, 0);
}

TEST(Ref, AdoptTakesOverACountAndDetachGivesItAway) {
  int alive = 0;
  Counted* raw = make<Counted>(alive).detach();
  EXPECT_EQ(alive, 1);
  { const auto adopted = Ref<Counted>::adopt(raw); }
  EXPECT_EQ(alive, 0);
  raw = new Counted(alive);
  { const Ref<Counted> shared(raw); }
  EXPECT_EQ(alive, 1);
  raw->release();
  EXPECT_EQ(alive, 0);
}

TEST(Ref, ObjectOnTheStackLivesAsLongAsItsScope) {
  int alive = 0;
  {
    Counted object(alive);
    { const Variant shared{Ref<Counted>(&object)}; }
    EXPECT_EQ(alive, 1);
  }
  EXPECT_EQ(alive, 0);
}

TEST(Ref, CastFindsTheClassOrNothing) {
  int alive = 0;
  const Ref<Object> special = make<Special>(alive);
  const Ref<Object> plain = make<Counted>(alive);
  EXPECT_TRUE(cast<Special>(special));
  EXPECT_TRUE(cast<Counted>(special));
  EXPECT_FALSE(cast<Special>(plain));
  EXPECT_FALSE(cast<Counted>(Ref<Object>()));
}

TEST(Object, WithoutMembersAnswersNothing) {
  int alive = 0;
  Counted object(alive);
  EXPECT_FALSE(object.id_of("Value"));
  EXPECT_EQ(testing_support::error_of([&] { object.default_value(); }), 438);
  EXPECT_EQ(testing_support::error_of([&] { object.call("Value", InvokeKind::get, {}); }), 438);
  EXPECT_EQ(testing_support::error_of([&] { object.invoke(1, InvokeKind::method, {}); }), 438);
}

}  // namespace
}  // namespace automation
