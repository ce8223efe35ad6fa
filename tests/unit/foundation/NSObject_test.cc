#include <gtest/gtest.h>

#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"

namespace {

class Target : public Subclass<Target, NSObject> {
 public:
  static const ClassOf<Target> classObject;

  void act() { ++actions; }
  std::optional<PropertyListValue> get(const NSObject& /*row*/) { return kept; }
  void set(const PropertyListValue& value, const NSObject& /*row*/) { kept = value; }

  int actions = 0;
  PropertyListValue kept = 0;
};

constexpr auto kTargetMethods = methods<Target>(
    method<&Target::act>("act"), method<&Target::get>("get:"), method<&Target::set>("set:row:"));
constexpr ClassOf<Target> Target::classObject{"Target", kTargetMethods};

class SelectorTest : public testing::Test {
 protected:
  std::shared_ptr<Target> target = allocInit<Target>();
  std::shared_ptr<NSObject> row = allocInit<NSObject>();
};

TEST_F(SelectorTest, AnActionIsCalledAndSaidToBe) {
  EXPECT_TRUE(target->performAction("act", nullptr));
  EXPECT_EQ(target->actions, 1);
}

TEST_F(SelectorTest, ASetterIsCalledAndSaidToBe) {
  EXPECT_TRUE(target->performSetter("set:row:", 3, *row));
  EXPECT_EQ(target->performGetter("get:", *row), PropertyListValue(3));
}

TEST_F(SelectorTest, WhatNobodyAnswersForOrIsOfAnotherShapeDoesNothing) {
  for (const char* selector : {"", "Act", "act:", "get:", "set:row:"}) {
    EXPECT_FALSE(target->performAction(selector, nullptr)) << selector;
  }
  for (const char* selector : {"", "set:", "act", "get:"}) {
    EXPECT_FALSE(target->performSetter(selector, 3, *row)) << selector;
  }
  for (const char* selector : {"", "get", "act", "set:row:"}) {
    EXPECT_EQ(target->performGetter(selector, *row), std::nullopt) << selector;
  }
  EXPECT_EQ(target->actions, 0);
  EXPECT_EQ(target->kept, PropertyListValue(0));
}

}  // namespace
