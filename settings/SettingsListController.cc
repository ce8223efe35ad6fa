#include "settings/SettingsListController.h"

#include <utility>

#include "platform/uikit/UIImage.h"
#include "platform/uikit/UINavigationController.h"
#include "settings/BundleFailureController.h"

constexpr ClassDescription SettingsListController::classObject{"SettingsListController",
                                                               &PSListController::classObject,
                                                               &allocObject<SettingsListController>,
                                                               {}};

std::shared_ptr<SettingsListController> SettingsListController::withEntries(
    std::vector<BundleEntry> entries, std::shared_ptr<BundleLoader> loader) {
  auto page = allocInit<SettingsListController>();
  page->entries_ = std::move(entries);
  page->loader_ = std::move(loader);
  page->setTitle("Settings");
  return page;
}

const PSSpecifiers& SettingsListController::specifiers() {
  if (hasSpecifiers()) {
    return keptSpecifiers();
  }
  PSSpecifiers rows{PSSpecifier::groupSpecifierWithName("")};
  if (entries_.empty()) {
    rows.front()->setPropertyForKey(PropertyListValue("No settings are installed."), "footerText");
  }
  for (const auto& entry : entries_) {
    auto row = PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        entry.label, shared_from_this(), "", "", entry.detail, PSCellType::kLink, "");
    if (const auto icon = entry.iconPath.empty() ? nullptr : UIImage::imageNamed(entry.iconPath)) {
      row->setPropertyForKey(std::shared_ptr<NSObject>(icon), "iconImage");
    }
    if (entry.badge) {
      row->setPropertyForKey(PropertyListValue(*entry.badge), "badgeString");
    }
    rows.push_back(std::move(row));
  }
  setSpecifiers(std::move(rows));
  return keptSpecifiers();
}

void SettingsListController::tableViewDidSelectRowAtIndexPath(UITableView& /*table*/,
                                                              NSIndexPath indexPath) {
  // The only group stands first; the rows after it are the entries in order.
  if (const auto index = indexForIndexPath(indexPath)) {
    open(*index - 1, true);
  }
}

void SettingsListController::open(std::size_t entry, bool animated) {
  const auto row = specifiers()[entry + 1];
  const std::string error = loader_->load(entries_[entry]);
  navigationController()->pushViewControllerAnimated(
      error.empty() ? makePane(row->detail(), row)
                    : BundleFailureController::forBundle(entries_[entry].bundlePath, error, row),
      animated);
}

void SettingsListController::openPane(const std::string& className) {
  for (std::size_t entry = 0; entry < entries_.size(); ++entry) {
    const bool loaded = loader_->load(entries_[entry]).empty();
    if (className == entries_[entry].detail) {
      open(entry, false);
      return;
    }
    if (!loaded || !NSClassFromString(className)) {
      continue;
    }
    open(entry, false);
    const auto first = cast<PSListController>(navigationController()->topViewController());
    for (const auto& row : first ? first->specifiers() : PSSpecifiers()) {
      if (row->detail() == className) {
        navigationController()->pushViewControllerAnimated(makePane(className, row), false);
        return;
      }
    }
    break;
  }
  navigationController()->pushViewControllerAnimated(makePane(className, nullptr), false);
}
