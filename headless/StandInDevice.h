#pragma once

#include "platform/services.h"

/// A device that is the same on every machine.
class StandInDevice : public DeviceInformationService {
 public:
  PropertyListDictionary deviceInformation() override {
    return {{"System", "Stand-in"}, {"SystemVersion", "1"}};
  }
};
