#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "platform/api.h"
#include "platform/foundation/PropertyList.h"

class NSObject;

/// One operation of a class that a resource or another object may name by its selector.
struct Method {
  /// Called by a row, a control, a bar button or a gesture; the sender may be null.
  using Action = void (*)(NSObject& receiver, NSObject* sender);
  /// Gives the value that a row shows, or nothing.
  using Getter = std::optional<PropertyListValue> (*)(NSObject& receiver, NSObject& row);
  /// Takes the value that the user chose or typed in a row.
  using Setter = void (*)(NSObject& receiver, const PropertyListValue& value, NSObject& row);

  /// A method of the class itself: makes an object of it from another one, or null.
  using Factory = std::shared_ptr<NSObject> (*)(const std::shared_ptr<NSObject>& argument);

  std::string_view selector;
  std::variant<Action, Getter, Setter, Factory> implementation;
};

/// What can be known of a class by name at run time: constant data, nothing runs to make it. A
/// class declares its own as a ClassOf itself (Subclass.h).
struct ClassDescription {
  std::string_view name;
  const ClassDescription* superclass = nullptr;
  /// First phase of making an object; an init… of the class is the second. Null for a class of
  /// which there are only subclasses' objects.
  std::shared_ptr<NSObject> (*alloc)() = nullptr;
  std::span<const Method> methods;

  /// The implementation of a selector, here or in a superclass; null where nobody answers for it.
  PLATFORM_API const Method* methodForSelector(std::string_view selector) const;
  PLATFORM_API bool isSubclassOf(const ClassDescription& other) const;

  /// What the factory of that selector makes of the argument; null when there is no such factory.
  PLATFORM_API std::shared_ptr<NSObject> performFactory(
      std::string_view selector, const std::shared_ptr<NSObject>& argument) const;
};

/// All classes of one loaded module. A bundle's module exports one of these under the name
/// `quietDialPreferencesClasses`; the classes and the table live as long as the process.
struct ClassTable {
  std::span<const ClassDescription* const> classes;
};

/// Makes the classes of a table known by name. A name that is already taken keeps its first class.
/// Main thread.
PLATFORM_API void registerClasses(const ClassTable& table);

/// The class of that name, or null. Main thread.
PLATFORM_API const ClassDescription* NSClassFromString(std::string_view name);
