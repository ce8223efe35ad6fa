#pragma once

#include <optional>
#include <string>
#include <vector>

/// What `quietdial drive` is given.
struct DriveOptions {
  std::string root;    ///< Empty for a new empty folder.
  std::string bundle;  ///< The folder of a bundle; empty for the installed panes.
  double width = 320;
  std::optional<std::string> entryBadge;
  std::vector<std::string> mappedHosts;
  std::string effects = "record";
  std::string mail = "yes";
  std::vector<std::string> schemes;
};
