#include "linux/UnsavedSettings.h"

#include <utility>

#include "platform/foundation/MainQueue.h"

namespace {

const PropertyListValue* valueOf(const PropertyListDictionary& dictionary, const std::string& key) {
  const auto entry = dictionary.find(key);
  return entry == dictionary.end() ? nullptr : &entry->second;
}

bool holds(const PropertyListDictionary& dictionary, const std::string& key,
           const PropertyListValue& value) {
  const auto* held = valueOf(dictionary, key);
  return held && *held == value;
}

// Whether the two hold different values under the key.
bool differ(const PropertyListDictionary& one, const PropertyListDictionary& other,
            const std::string& key) {
  const auto* value = valueOf(one, key);
  return value ? !holds(other, key, *value) : valueOf(other, key) != nullptr;
}

}  // namespace

void UnsavedSettings::writeFailed(const std::string& path, const PropertyListDictionary& wanted,
                                  const PropertyListDictionary& stored, std::error_code reason) {
  const std::lock_guard lock(mutex_);
  bool any = false;
  for (const auto& [key, value] : wanted) {
    if (holds(stored, key, value)) {
      continue;
    }
    std::erase_if(settings_, [&, &name = key](const Setting& setting) {
      return setting.path == path && setting.key == name;
    });
    settings_.push_back({path, key, value, reason});
    any = true;
  }
  if (any) {
    noteChange();
  }
}

void UnsavedSettings::written(const std::string& path, const PropertyListDictionary& before,
                              const PropertyListDictionary& after) {
  const std::lock_guard lock(mutex_);
  const auto count = std::erase_if(settings_, [&](const Setting& setting) {
    return setting.path == path &&
           (holds(after, setting.key, setting.value) || differ(before, after, setting.key));
  });
  if (count > 0) {
    noteChange();
  }
}

void UnsavedSettings::forget() {
  const std::lock_guard lock(mutex_);
  if (!std::exchange(settings_, {}).empty()) {
    noteChange();
  }
}

std::vector<UnsavedSettings::Setting> UnsavedSettings::settings() const {
  const std::lock_guard lock(mutex_);
  return settings_;
}

bool UnsavedSettings::isEmpty() const {
  const std::lock_guard lock(mutex_);
  return settings_.empty();
}

void UnsavedSettings::setChangedHook(std::function<void()> hook) {
  changed_ = std::move(hook);
}

void UnsavedSettings::noteChange() {
  if (std::exchange(noted_, true)) {
    return;
  }
  MainQueue::shared().async([weak = weak_from_this()] {
    const auto self = weak.lock();
    if (!self) {
      return;
    }
    {
      const std::lock_guard lock(self->mutex_);
      self->noted_ = false;
    }
    if (self->changed_) {
      self->changed_();
    }
  });
}
