#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"

/// What an observer is told of.
class PLATFORM_API NSNotification : public Subclass<NSNotification, NSObject> {
 public:
  static const ClassOf<NSNotification> classObject;

  const std::string& name() const { return name_; }
  /// The sender, or null.
  const std::shared_ptr<NSObject>& object() const { return object_; }

 private:
  friend class NSNotificationCenter;

  std::string name_;
  std::shared_ptr<NSObject> object_;
};

/// Notifications inside the process. Posting calls the observers at once, in the order in which
/// they were added. Observers are not kept alive and remove themselves before they go. Main thread.
class PLATFORM_API NSNotificationCenter {
 public:
  static NSNotificationCenter& defaultCenter();

  NSNotificationCenter(const NSNotificationCenter&) = delete;
  NSNotificationCenter& operator=(const NSNotificationCenter&) = delete;
  NSNotificationCenter(NSNotificationCenter&&) = delete;
  NSNotificationCenter& operator=(NSNotificationCenter&&) = delete;

  /// `selector` names an action of the observer that takes the notification. A null `object` is any
  /// sender.
  void addObserverSelectorNameObject(NSObject& observer, std::string_view selector,
                                     std::string_view name,
                                     const std::shared_ptr<NSObject>& object);
  /// Forgets the observer; one that is removed while a notification is posted is not told any more.
  void removeObserver(const NSObject& observer);

  void postNotificationNameObject(std::string_view name, const std::shared_ptr<NSObject>& object);

 private:
  struct Registration {
    NSObject* observer;
    std::string selector;
    std::string name;
    const NSObject* object;
  };

  NSNotificationCenter() = default;

  // Those removed during a post leave an empty place until it is over.
  std::vector<Registration> registrations_;
  int posts_ = 0;
};
