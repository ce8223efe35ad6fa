#include "settings/bundles/InstalledBundles.h"

#include <filesystem>
#include <set>
#include <utility>

#include "settings/messages/complain.h"
#include "settings/window/SettingsWindow.h"

InstalledBundles::InstalledBundles(const BundleOptions& options,
                                   const std::shared_ptr<const DevicePaths>& paths,
                                   const FileService& files)
    : loader_(std::make_shared<BundleLoader>(paths)),
      record_(std::make_shared<OpeningRecord>(QString::fromStdString(paths->root()) +
                                              "/User/Library/Caches/Settings/Opening")) {
  const auto names =
      options.folder.empty()
          ? findBundles({DevicePaths::installedLibrary(), paths->root() + "/Library"})
          : std::set{std::filesystem::path(options.folder).filename().string()};
  entries_ = readBundleEntries(names, files, complain);
  for (auto& entry : entries_) {
    entry.badge = options.badge ? options.badge : entry.badge;
  }
}

std::shared_ptr<SettingsListController> InstalledBundles::listIn(
    SettingsWindow& window, std::vector<SettingsListController::OwnPage> ownPages) const {
  QObject::connect(&window, &SettingsWindow::pagesShown, &window,
                   [record = record_] { record->succeed(); });
  auto list = SettingsListController::withEntries(entries_, loader_, record_, std::move(ownPages));
  window.navigation().stack().pushViewControllerAnimated(list, false);
  return list;
}

void InstalledBundles::load() const {
  for (const auto& entry : entries_) {
    loader_->load(entry);
  }
}
