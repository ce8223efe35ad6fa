#include "tools/deviceRoot.h"

#include <CLI/CLI.hpp>

void addRootOption(CLI::App& app, std::string& root) {
  app.add_option("--root", root, "Device root with the settings (default: the user's)")
      ->type_name("DIR");
}

DevicePaths devicePathsBelow(const std::string& root) {
  return {root.empty() ? DevicePaths::defaultRoot() : root, DevicePaths::installedLibrary()};
}
