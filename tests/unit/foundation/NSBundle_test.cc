#include "platform/foundation/NSBundle.h"

#include <array>

#include <gtest/gtest.h>

#include "platform/foundation/NSObject.h"

namespace {

class First : public NSObject {
 public:
  static const ClassDescription classObject;
};
class Second : public NSObject {
 public:
  static const ClassDescription classObject;
};
class Derived : public Second {
 public:
  static const ClassDescription classObject;
};

constexpr ClassDescription First::classObject{
    "First", &NSObject::classObject, &allocObject<First>, {}};
constexpr ClassDescription Second::classObject{
    "Second", &NSObject::classObject, &allocObject<Second>, {}};
constexpr ClassDescription Derived::classObject{
    "Derived", &Second::classObject, &allocObject<Derived>, {}};

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
