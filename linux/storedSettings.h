#pragma once

#include <string>

#include "linux/DevicePaths.h"
#include "platform/foundation/PropertyList.h"

/// The settings file as it is.
struct StoredSettings {
  enum class State {
    kAbsent,  ///< There is none: every setting has its default.
    kRead,
    kUnreadable,
  };

  State state = State::kAbsent;
  PropertyListDictionary settings;
  std::string fault;  ///< Where it is unreadable: why, as the end of a sentence.
};

/// Any thread.
StoredSettings readStoredSettings(const DevicePaths& paths);
