#pragma once

#include <optional>
#include <string>
#include <vector>

#include "linux/DevicePaths.h"
#include "platform/services.h"

/// What a bundle says of itself in its Entry.plist, for its row on the application's first page.
/// docs/bundle-entries.md describes the file. Paths are device paths.
struct BundleEntry {
  std::string bundlePath;
  std::string label;
  std::string iconPath;  // empty for none
  std::string modulePath;
  std::string detail;  // class name of the first pane
  std::optional<std::string> badge;
};

/// The entries of the bundles in these Library folders (real paths), by the names of their folders;
/// of two bundles of one name there is one entry. A bundle without a usable entry is passed over,
/// with a line on standard error. Main thread.
std::vector<BundleEntry> readBundleEntries(const std::vector<std::string>& libraryFolders,
                                           const FileService& files);
