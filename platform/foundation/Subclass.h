#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <type_traits>

#include "platform/api.h"
#include "platform/foundation/ClassDescription.h"
#include "platform/foundation/NSObject.h"

/// The entries of T's method table; `methods` (method.h) makes them.
template <class T, std::size_t count>
struct Methods {
  std::array<Method, count> entries;
};

/// The description of the class T. Its superclass is the one that T derives from:
///   class QDPane : public Subclass<QDPane, PSListController> {
///    public:
///     static const ClassOf<QDPane> classObject;
///   };
///   constexpr ClassOf<QDPane> QDPane::classObject{"QDPane", kMethods};
template <class T>
class ClassOf : public ClassDescription {
 public:
  constexpr explicit ClassOf(std::string_view className)
      : ClassDescription{className, &T::Superclass::classObject, allocator(), {}} {
    static_assert(kIsDescribed<T>,
                  "T derives from Subclass<T, Base>, with a classObject of its own");
  }

  template <std::size_t count>
  constexpr ClassOf(std::string_view className, const Methods<T, count>& table)
      : ClassOf(className) {
    methods = table.entries;
  }

 private:
  static constexpr auto allocator() -> std::shared_ptr<NSObject> (*)() {
    if constexpr (std::is_abstract_v<T>) {
      return nullptr;
    } else {
      return &allocObject<T>;
    }
  }
};

/// What every described class derives from: Base, and that an object of the class Self says so. No
/// class goes by the description of its superclass.
template <class Self, class Base>
class PLATFORM_API Subclass : public Base {
  static_assert(kIsDescribed<Base>, "a superclass has a description of its own");

 public:
  using Superclass = Base;

  const ClassDescription& classDescription() const override {
    static_assert(kIsDescribed<Self>, "a class has a description of its own");
    return Self::classObject;
  }
};
