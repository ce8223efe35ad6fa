#pragma once

#include <functional>
#include <optional>
#include <set>
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

/// The names of the bundle folders in these Library folders (real paths).
std::set<std::string> findBundles(const std::vector<std::string>& libraryFolders);

/// The entries of the bundles of these names, in their order. A bundle without an entry is passed
/// over, one whose entry cannot be used with a sentence to `complain`. Main thread.
std::vector<BundleEntry> readBundleEntries(const std::set<std::string>& names,
                                           const FileService& files,
                                           const std::function<void(const std::string&)>& complain);
