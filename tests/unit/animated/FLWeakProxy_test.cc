#include "animated/FLWeakProxy.h"

#include <gtest/gtest.h>

#include "platform/foundation/NSNumber.h"
#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"
#include "tests/support/PaneTest.h"

namespace {

class Target : public Subclass<Target, NSObject> {
 public:
  static const ClassOf<Target> classObject;

  void take(const std::shared_ptr<NSNumber>& number) { taken = number; }
  std::optional<PropertyListValue> give(const NSNumber& row) {
    return PropertyListValue(row.unsignedIntegerValue() + 1);
  }
  void put(const PropertyListValue& value, const NSNumber& row) {
    stored = value;
    storedFor = row.unsignedIntegerValue();
  }

  std::shared_ptr<NSNumber> taken;
  std::optional<PropertyListValue> stored;
  std::uint64_t storedFor = 0;
};

constexpr auto kTargetMethods =
    methods<Target>(method<&Target::take>("take:"), method<&Target::give>("give:"),
                    method<&Target::put>("put:for:"));
constexpr ClassOf<Target> Target::classObject{"Target", kTargetMethods};

class FLWeakProxyTest : public PaneTest {
 protected:
  std::shared_ptr<Target> target = allocInit<Target>();
  std::shared_ptr<FLWeakProxy> proxy = FLWeakProxy::weakProxyForObject(target);
  std::shared_ptr<NSNumber> number = NSNumber::numberWithUnsignedInteger(41);
};

TEST_F(FLWeakProxyTest, PassesArgumentsAndResultsOnUnchangedWhileTheTargetLives) {
  EXPECT_TRUE(proxy->respondsToSelector("take:"));
  EXPECT_TRUE(proxy->performAction("take:", number.get()));
  EXPECT_EQ(target->taken, number);
  EXPECT_EQ(proxy->performGetter("give:", *number), PropertyListValue(42));
  EXPECT_TRUE(proxy->performSetter("put:for:", PropertyListValue("text"), *number));
  EXPECT_EQ(target->stored, PropertyListValue("text"));
  EXPECT_EQ(target->storedFor, 41);
}

TEST_F(FLWeakProxyTest, AMessageAfterTheTargetHasGoneAnswersWithNothing) {
  target.reset();
  EXPECT_EQ(proxy->target(), nullptr);
  EXPECT_FALSE(proxy->respondsToSelector("take:"));
  EXPECT_FALSE(proxy->performAction("take:", number.get()));
  EXPECT_EQ(proxy->performGetter("give:", *number), std::nullopt);
  EXPECT_FALSE(proxy->performSetter("put:for:", PropertyListValue("text"), *number));
}

TEST_F(FLWeakProxyTest, AProxyOfNothingBehavesAsOneWhoseTargetHasGone) {
  const auto empty = FLWeakProxy::weakProxyForObject(nullptr);
  EXPECT_EQ(empty->target(), nullptr);
  EXPECT_FALSE(empty->performAction("take:", number.get()));
  EXPECT_EQ(empty->performGetter("give:", *number), std::nullopt);
}

TEST_F(FLWeakProxyTest, DoesNotKeepItsTargetAlive) {
  const std::weak_ptr<Target> weak = target;
  target.reset();
  EXPECT_TRUE(weak.expired());
}

TEST_F(FLWeakProxyTest, ATargetThatIsSetLaterIsTheOneThatIsReached) {
  const auto other = allocInit<Target>();
  proxy->setTarget(other);
  proxy->performAction("take:", number.get());
  EXPECT_EQ(target->taken, nullptr);
  EXPECT_EQ(other->taken, number);
}

}  // namespace
