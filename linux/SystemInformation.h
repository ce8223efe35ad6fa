#pragma once

#include <string>

#include "platform/services.h"

/// The kind of this machine: `System` and `SystemVersion` from the distribution's release file,
/// `Kernel`, `Architecture` and `Locale`. What cannot be told is left out, and so is what somebody
/// may have named after themselves (a kernel built by hand keeps its number alone).
class SystemInformation final : public DeviceInformationService {
 public:
  explicit SystemInformation(std::string releaseFile = "/etc/os-release");
  PropertyListDictionary deviceInformation() override;

 private:
  std::string releaseFile_;
};
