#pragma once

#include <optional>
#include <string>

#include "settings/bundles/BundleOptions.h"
#include "settings/start/StartOptions.h"

/// What the command line asks of the Settings application.
struct Options {
  StartOptions start;
  BundleOptions bundles;
  std::string pane;        // class name; empty for none
  std::string gif;         // file; empty for none
  std::string screenshot;  // file; empty for a window
  bool hasEffects = true;  // false for pictures
  bool isTrial = false;    // calls that cannot be placed are shown

  Options() = default;
  Options(const Options&) = delete;
  Options& operator=(const Options&) = delete;
  Options(Options&&) = delete;
  Options& operator=(Options&&) = delete;
  ~Options() = default;

  /// Nothing when the program is to go on, else the status that it ends with; all is said by then.
  std::optional<int> parse(int count, const char* const* values);
};
