#pragma once

#include "linux/SystemInformation.h"
#include "platform/services.h"

/// What kind of machine this is, with its screen and the versions of the window's own programs.
class WindowDeviceInformation final : public DeviceInformationService {
 public:
  PropertyListDictionary deviceInformation() override;

 private:
  SystemInformation system_;
};
