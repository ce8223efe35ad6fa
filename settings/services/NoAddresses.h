#pragma once

#include <string>

#include "platform/services.h"

/// Nothing opens any address, on whatever machine.
class NoAddresses final : public AddressOpener {
 public:
  bool canOpen(const std::string& /*url*/) override { return false; }
  void open(const std::string& /*url*/) override {}
};
