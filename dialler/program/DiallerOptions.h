#pragma once

#include <optional>
#include <string>

#include "settings/start/StartOptions.h"

/// What the command line asks of the dialler.
struct DiallerOptions {
  StartOptions start;
  std::string number;      // a number or a link, which is anybody's text
  bool hasNumber = false;  // without one there is the keypad
  std::string via = "auto";
  std::string region;
  bool isTrial = false;
  std::string screenshot;  // file; empty for a window

  DiallerOptions() = default;
  DiallerOptions(const DiallerOptions&) = delete;
  DiallerOptions& operator=(const DiallerOptions&) = delete;
  DiallerOptions(DiallerOptions&&) = delete;
  DiallerOptions& operator=(DiallerOptions&&) = delete;
  ~DiallerOptions() = default;

  /// Nothing when the program is to go on, else the status that it ends with; all is said by then,
  /// without repeating a number.
  std::optional<int> parse(int count, const char* const* values);
};
