#pragma once

#include <optional>
#include <string>
#include <vector>

#include "calling/CallPlan.h"
#include "linux/DevicePaths.h"
#include "platform/foundation/PropertyList.h"

/// How things stand: what is set, what a call would be, and what is in its way.
struct SettingsStatus {
  struct Warning {
    std::string code;  ///< As programs read it.
    std::string sentence;
  };

  PropertyListDictionary settings;
  CallPlan example;       ///< What would be dialled for kExampleNumber.
  std::string lineTitle;  ///< Of the line that would dial it; empty for none.
  std::vector<Warning> warnings;
};

/// Asks the machine, which takes a few seconds at most.
SettingsStatus findSettingsStatus(const DevicePaths& paths);
