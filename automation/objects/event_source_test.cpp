#include "automation/event_source.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "automation/error.h"
#include "automation/member.h"

namespace automation {
namespace {

constexpr Event ticked{.id = 3, .name = "Ticked"};

class EventSourceTest : public testing::Test {
 protected:
  EventSource::Sink says(char name) {
    return [this, name](const Event&, std::span<const Variant>) { heard_ += name; };
  }
  /// What the sinks say to one event.
  std::string raise() {
    heard_.clear();
    source_.raise(ticked);
    return heard_;
  }

  EventSource source_;
  std::string heard_;
};

TEST_F(EventSourceTest, SinksHearInTheOrderInWhichTheyConnected) {
  EXPECT_FALSE(source_.has_sinks());
  EXPECT_EQ(raise(), "");
  const int32_t a = source_.connect(says('a'));
  const int32_t b = source_.connect(says('b'));
  source_.connect(says('c'));
  EXPECT_NE(a, 0);
  EXPECT_NE(a, b);
  EXPECT_TRUE(source_.has_sinks());
  EXPECT_EQ(raise(), "abc");
  EXPECT_TRUE(source_.disconnect(b));
  EXPECT_EQ(raise(), "ac");
  EXPECT_FALSE(source_.disconnect(b));
  EXPECT_FALSE(source_.disconnect(0));
  EXPECT_EQ(raise(), "ac");
}

TEST_F(EventSourceTest, EventAndArgumentsArrive) {
  source_.connect([&](const Event& event, std::span<const Variant> arguments) {
    EXPECT_EQ(event.name, "Ticked");
    EXPECT_EQ(event.id, 3);
    ASSERT_EQ(arguments.size(), 2U);
    EXPECT_EQ(arguments[0], Variant(1));
    EXPECT_EQ(arguments[1], Variant("x"));
    heard_ = "yes";
  });
  const Variant arguments[] = {1, "x"};
  source_.raise(ticked, arguments);
  EXPECT_EQ(heard_, "yes");
}

TEST_F(EventSourceTest, SinkConnectedInsideAnEventHearsTheNextOne) {
  bool once = true;
  source_.connect([&](const Event&, std::span<const Variant>) {
    heard_ += 'a';
    if (std::exchange(once, false))
      for (int i = 0; i < 100; ++i) source_.connect(i == 0 ? says('n') : says('.'));
  });
  source_.connect(says('b'));
  EXPECT_EQ(raise(), "ab");
  EXPECT_EQ(raise(), "abn" + std::string(99, '.'));
}

TEST_F(EventSourceTest, SinkDisconnectsItself) {
  int32_t self = 0;
  source_.connect(says('a'));
  self = source_.connect([&, kept = std::string(100, 's')](const Event&, std::span<const Variant>) {
    EXPECT_TRUE(source_.disconnect(self));
    heard_ += kept[99];
  });
  source_.connect(says('c'));
  EXPECT_EQ(raise(), "asc");
  EXPECT_EQ(raise(), "ac");
}

TEST_F(EventSourceTest, SinkDisconnectsOthers) {
  int32_t a = 0, c = 0;
  a = source_.connect(says('a'));
  source_.connect([&](const Event&, std::span<const Variant>) {
    source_.disconnect(a);
    source_.disconnect(c);
    heard_ += 'b';
  });
  c = source_.connect(says('c'));
  source_.connect(says('d'));
  EXPECT_EQ(raise(), "abd");
  EXPECT_EQ(raise(), "bd");
}

TEST_F(EventSourceTest, WhatASinkRaisesEndsItsTurnOnly) {
  source_.connect([](const Event&, std::span<const Variant>) { throw type_mismatch(); });
  source_.connect(says('a'));
  source_.connect([](const Event&, std::span<const Variant>) { throw std::runtime_error("sink"); });
  source_.connect([](const Event&, std::span<const Variant>) { throw 5; });
  source_.connect(says('b'));
  EXPECT_EQ(raise(), "ab");
  EXPECT_EQ(raise(), "ab");
}

TEST_F(EventSourceTest, EventInsideAnEvent) {
  int depth = 0;
  source_.connect([&](const Event&, std::span<const Variant>) {
    heard_ += 'a';
    if (++depth == 1) source_.raise(ticked);
  });
  source_.connect(says('b'));
  EXPECT_EQ(raise(), "aabb");
}

}  // namespace
}  // namespace automation
