#pragma once

#include <memory>
#include <optional>
#include <string>

#include "linux/DevicePaths.h"

namespace CLI {
class App;
}

/// What a program that shows bundles can be told about them.
struct BundleOptions {
  std::string folder;                // of the one bundle to show; empty for the installed ones
  std::optional<std::string> badge;  // in place of the entries' own

  /// Lets the user choose, by options of the command line. This object outlives the parsing.
  void addTo(CLI::App& app);

  /// Where the files of the device lie, with that root.
  std::shared_ptr<const DevicePaths> pathsBelow(const std::string& root) const;
};
