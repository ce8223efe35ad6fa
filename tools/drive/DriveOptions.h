#pragma once

#include <optional>
#include <string>
#include <vector>

/// What `quietdial drive` is given.
struct DriveOptions {
  std::string root;  ///< Empty for a new empty folder.
  double width = 320;
  std::optional<std::string> entryBadge;
  std::vector<std::string> mappedHosts;
  std::string effects = "record";
  std::string mail = "yes";
  std::vector<std::string> schemes;
};
