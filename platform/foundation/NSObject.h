#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/api.h"
#include "platform/foundation/ClassDescription.h"

/// Root of every class that is reference counted or reached by name.
///
/// Objects are made in two phases: `alloc<T>()`, then an `init…` that says whether it worked. A
/// weak reference to oneself and virtual calls work from the second phase on. Selectors are called
/// on the main thread.
class PLATFORM_API NSObject : public std::enable_shared_from_this<NSObject> {
 public:
  static const ClassDescription classObject;

  NSObject() = default;
  virtual ~NSObject();
  NSObject(const NSObject&) = delete;
  NSObject& operator=(const NSObject&) = delete;
  NSObject(NSObject&&) = delete;
  NSObject& operator=(NSObject&&) = delete;

  /// False when the object could not be set up; it is then dropped.
  virtual bool init();

  virtual const ClassDescription& classDescription() const;
  bool respondsToSelector(std::string_view selector) const;

  /// Whether both are the same object, unless a class says otherwise. False for null.
  virtual bool isEqual(const NSObject* other) const { return this == other; }

  /// The class's name and the object's address, for people.
  virtual std::string description() const;

  /// Who answers for a selector that the class itself does not know; null for nobody. Any thread.
  virtual std::shared_ptr<NSObject> forwardingTargetForSelector(std::string_view selector) const;

  /// Calls the action of that selector with the sender, which may be null. False, and nothing
  /// happens, when there is none.
  bool performAction(std::string_view selector, NSObject* sender);
  /// The answer of the getter of that selector; nothing when there is none.
  std::optional<PropertyListValue> performGetter(std::string_view selector, NSObject& row);
  /// The answer of a getter that takes nothing; nothing when there is none.
  std::optional<PropertyListValue> valueForKey(std::string_view key) {
    return performGetter(key, *this);
  }
  /// Calls the setter of that selector. False, and nothing happens, when there is none.
  bool performSetter(std::string_view selector, const PropertyListValue& value, NSObject& row);
};

/// Destroys an object on the main queue: at once when called there, else as a task of that queue.
/// Timers, observers and views belong to the main thread, and a last reference may go elsewhere.
struct PLATFORM_API MainQueueDeleter {
  void operator()(NSObject* object) const;
};

template <class T>
class ClassOf;
template <class Self, class Base>
class Subclass;

/// Whether T is described as itself, with its own superclass (Subclass.h).
template <class T>
inline constexpr bool kIsDescribed = requires {
  requires std::is_base_of_v<Subclass<T, typename T::Superclass>, T>;
  requires std::is_same_v<decltype(T::classObject), const ClassOf<T>>;
};
template <>
inline constexpr bool kIsDescribed<NSObject> = true;

/// An object that waits for its init….
template <class T>
std::shared_ptr<T> alloc() {
  static_assert(kIsDescribed<T>, "an object is made of a class with a description of its own");
  return std::shared_ptr<T>(new T, MainQueueDeleter{});
}

/// alloc and init; null when init failed.
template <class T>
std::shared_ptr<T> allocInit() {
  auto object = alloc<T>();
  return object->init() ? object : nullptr;
}

/// The `alloc` entry of a class description.
template <class T>
std::shared_ptr<NSObject> allocObject() {
  return alloc<T>();
}

/// The object as a T, sharing ownership; null when it is none.
template <class T>
std::shared_ptr<T> cast(const std::shared_ptr<NSObject>& object) {
  return std::dynamic_pointer_cast<T>(object);
}
