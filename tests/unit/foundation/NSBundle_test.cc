#include "platform/foundation/NSBundle.h"

#include <array>

#include <gtest/gtest.h>

#include "platform/foundation/Subclass.h"

namespace {

class First : public Subclass<First, NSObject> {
 public:
  static const ClassOf<First> classObject;
};
class Second : public Subclass<Second, NSObject> {
 public:
  static const ClassOf<Second> classObject;
};
class Derived : public Subclass<Derived, Second> {
 public:
  static const ClassOf<Derived> classObject;
};

constexpr ClassOf<First> First::classObject{"First"};
constexpr ClassOf<Second> Second::classObject{"Second"};
constexpr ClassOf<Derived> Derived::classObject{"Derived"};

constexpr std::array<const ClassDescription*, 1> kFirst{&First::classObject};
constexpr std::array<const ClassDescription*, 1> kSecond{&Second::classObject};

TEST(Bundle, AClassBelongsToTheBundleThatHoldsItOrItsNearestSuperclass) {
  const auto first = NSBundle::load("/First.bundle", {kFirst});
  const auto second = NSBundle::load("/Second.bundle", {kSecond});
  EXPECT_EQ(NSBundle::bundleForClass(First::classObject), first);
  EXPECT_EQ(NSBundle::bundleForClass(Second::classObject), second);
  EXPECT_EQ(NSBundle::bundleForClass(Derived::classObject), second);
  EXPECT_EQ(NSBundle::bundleForClass(NSObject::classObject), nullptr);
}

TEST(Bundle, ItsClassesAreKnownByNameAndANameKeepsItsFirstClass) {
  static constexpr ClassDescription kOther{
      "First", &NSObject::classObject, &allocObject<Second>, {}};
  static constexpr std::array<const ClassDescription*, 1> kOthers{&kOther};
  NSBundle::load("/First.bundle", {kFirst});
  NSBundle::load("/Other.bundle", {kOthers});
  EXPECT_EQ(NSClassFromString("First"), &First::classObject);
  EXPECT_EQ(NSClassFromString("first"), nullptr);
}

TEST(Bundle, AResourceLiesInItsFolder) {
  EXPECT_EQ(NSBundle::load("/First.bundle", {kFirst})->pathForResource("list", "plist"),
            "/First.bundle/list.plist");
}

}  // namespace
