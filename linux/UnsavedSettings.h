#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <system_error>
#include <vector>

#include "platform/foundation/PropertyList.h"

/// The settings that are not in their file because a write has failed, until each of them has been
/// written or nobody wants to hear of them any more. A write that fails but would have changed
/// nothing leaves none out. Any thread but where it says otherwise.
class UnsavedSettings : public std::enable_shared_from_this<UnsavedSettings> {
 public:
  struct Setting {
    std::string path;  ///< Device path of its file.
    std::string key;
    PropertyListValue value;  ///< What should have been written.
    std::error_code reason;   ///< Why it was not.
  };

  /// A write of `wanted` has failed for that reason; the file holds `stored`.
  void writeFailed(const std::string& path, const PropertyListDictionary& wanted,
                   const PropertyListDictionary& stored, std::error_code reason);
  /// The file held `before` and now holds `after`.
  void written(const std::string& path, const PropertyListDictionary& before,
               const PropertyListDictionary& after);
  /// Nobody wants to hear of those that are left out now.
  void forget();

  /// In the order in which they failed, the latest last.
  std::vector<Setting> settings() const;
  bool isEmpty() const;

  /// Called as a task of the main queue, once for all that has changed until then. One hook, empty
  /// for none. Main thread.
  void setChangedHook(std::function<void()> hook);

 private:
  void noteChange();

  std::function<void()> changed_;  // main thread
  mutable std::mutex mutex_;
  std::vector<Setting> settings_;  // guarded by mutex_
  bool noted_ = false;             // guarded by mutex_; the task is on its way
};
