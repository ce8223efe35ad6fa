#pragma once

#include <string>

#include "platform/services.h"

/// The log of a program in a terminal: its standard error.
class StandardErrorLog final : public SystemLog {
 public:
  void write(const std::string& line) override;
};
