#include "platform/foundation/ClassDescription.h"

#include <gtest/gtest.h>

#include "platform/foundation/method.h"

namespace {

class Shape : public Subclass<Shape, NSObject> {
 public:
  static const ClassOf<Shape> classObject;

  void turn() {}
  virtual int corners() const = 0;
};
constexpr auto kShapeMethods = methods<Shape>(method<&Shape::turn>("turn"));
constexpr ClassOf<Shape> Shape::classObject{"Shape", kShapeMethods};

class Square : public Subclass<Square, Shape> {
 public:
  static const ClassOf<Square> classObject;
  static std::shared_ptr<Square> like(const std::shared_ptr<NSObject>& other) {
    return cast<Square>(other);
  }

  int corners() const override { return 4; }
};
constexpr auto kSquareMethods = methods<Square>(method<&Square::like>("like:"));
constexpr ClassOf<Square> Square::classObject{"Square", kSquareMethods};

class Undescribed : public Square {};

static_assert(kIsDescribed<NSObject>);
static_assert(kIsDescribed<Shape>);
static_assert(kIsDescribed<Square>);
static_assert(!kIsDescribed<Undescribed>);
static_assert(Square::classObject.superclass == &Shape::classObject);
static_assert(Shape::classObject.superclass == &NSObject::classObject);

TEST(ClassDescription, AnObjectSaysWhatClassItIs) {
  const auto square = Square::classObject.alloc();
  EXPECT_EQ(&square->classDescription(), &Square::classObject);
  EXPECT_EQ(square->classDescription().name, "Square");
}

TEST(ClassDescription, AnAbstractClassMakesNoObject) {
  EXPECT_EQ(Shape::classObject.alloc, nullptr);
}

TEST(ClassDescription, AClassIsASubclassOfItselfAndOfAllAboveIt) {
  EXPECT_TRUE(Square::classObject.isSubclassOf(Square::classObject));
  EXPECT_TRUE(Square::classObject.isSubclassOf(Shape::classObject));
  EXPECT_TRUE(Square::classObject.isSubclassOf(NSObject::classObject));
  EXPECT_FALSE(Shape::classObject.isSubclassOf(Square::classObject));
}

TEST(ClassDescription, ASubclassAnswersForTheSelectorsAboveIt) {
  EXPECT_TRUE(Square::classObject.methodForSelector("turn"));
  EXPECT_FALSE(Shape::classObject.methodForSelector("like:"));
}

TEST(ClassDescription, OnlyAFactoryMakesSomething) {
  const auto square = allocInit<Square>();
  EXPECT_EQ(Square::classObject.performFactory("like:", square), square);
  EXPECT_EQ(Square::classObject.performFactory("like:", allocInit<NSObject>()), nullptr);
  EXPECT_EQ(Square::classObject.performFactory("turn", square), nullptr);
  EXPECT_EQ(Square::classObject.performFactory("like", square), nullptr);
}

}  // namespace
