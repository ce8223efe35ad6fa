#pragma once

#include <memory>
#include <string>
#include <vector>

#include "linux/BundleEntry.h"
#include "settings/bundles/BundleLoader.h"
#include "settings/bundles/BundleOptions.h"
#include "settings/bundles/OpeningRecord.h"
#include "settings/bundles/SettingsListController.h"

class SettingsWindow;

/// The bundles that a program shows, and the record of how opening them goes. After the services
/// were installed; main thread.
class InstalledBundles {
 public:
  InstalledBundles(const BundleOptions& options, const std::shared_ptr<const DevicePaths>& paths,
                   const FileService& files);

  /// A new first page at the bottom of that window, with a row for each, and for pages of the
  /// program's own.
  std::shared_ptr<SettingsListController> listIn(
      SettingsWindow& window, std::vector<SettingsListController::OwnPage> ownPages = {}) const;

  /// Makes the classes of all of them known.
  void load() const;

 private:
  std::vector<BundleEntry> entries_;
  std::shared_ptr<BundleLoader> loader_;
  std::shared_ptr<OpeningRecord> record_;
};
