#include "settings/bundles/SettingsListController.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/uikit/UIImage.h"
#include "platform/uikit/UINavigationController.h"
#include "settings/bundles/BundleFailureController.h"
#include "settings/bundles/HeldBackController.h"

constexpr ClassOf<SettingsListController> SettingsListController::classObject{
    "SettingsListController"};

std::shared_ptr<SettingsListController> SettingsListController::withEntries(
    std::vector<BundleEntry> entries, std::shared_ptr<BundleLoader> loader,
    std::shared_ptr<OpeningRecord> record, std::vector<OwnPage> ownPages) {
  auto page = allocInit<SettingsListController>();
  page->entries_ = std::move(entries);
  page->loader_ = std::move(loader);
  page->record_ = std::move(record);
  page->ownPages_ = std::move(ownPages);
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
  if (!ownPages_.empty()) {
    rows.push_back(PSSpecifier::groupSpecifierWithName(""));
  }
  for (const auto& page : ownPages_) {
    rows.push_back(PSSpecifier::preferenceSpecifierNamedTargetSetGetDetailCellEdit(
        page.label, shared_from_this(), "", "", page.className, PSCellType::kLink, ""));
  }
  setSpecifiers(std::move(rows));
  return keptSpecifiers();
}

void SettingsListController::tableViewDidSelectRowAtIndexPath(UITableView& /*table*/,
                                                              NSIndexPath indexPath) {
  // A group stands first; the rows after it are the entries in order, then one more and the
  // program's own pages.
  const auto index = indexForIndexPath(indexPath);
  if (!index) {
    return;
  }
  const std::size_t row = *index - 1;
  if (row < entries_.size()) {
    open(row, true);
  } else {
    const auto page = ownPages_[row - entries_.size() - 1].make();
    page->setSpecifier(specifiers()[*index]);
    navigationController()->pushViewControllerAnimated(page, true);
  }
}

void SettingsListController::open(std::size_t entry, bool animated) {
  const auto row = specifiers()[entry + 1];
  record_->begin(row->detail());
  const std::string error = loader_->load(entries_[entry]);
  navigationController()->pushViewControllerAnimated(
      error.empty() ? makePane(row->detail(), row)
                    : BundleFailureController::forBundle(entries_[entry].bundlePath, error, row),
      animated);
}

void SettingsListController::openPane(const std::string& className) {
  const auto exact = std::ranges::find(entries_, className, &BundleEntry::detail);
  if (exact != entries_.end()) {
    openInEntry(exact - entries_.begin(), className);
    return;
  }
  std::optional<std::size_t> heldBack;
  for (std::size_t entry = 0; entry < entries_.size(); ++entry) {
    const auto& first = entries_[entry].detail;
    if (record_->tookProgramDown(first)) {
      heldBack = heldBack.value_or(entry);
      continue;
    }
    record_->begin(first);
    if (loader_->load(entries_[entry]).empty() && NSClassFromString(className)) {
      openInEntry(entry, className);
      return;
    }
  }
  if (heldBack) {
    openInEntry(*heldBack, className);
    return;
  }
  navigationController()->pushViewControllerAnimated(makePane(className, nullptr), false);
}

void SettingsListController::openInEntry(std::size_t entry, const std::string& className) {
  const auto row = specifiers()[entry + 1];
  const auto open = [this, entry, className] {
    this->open(entry, false);
    if (className != entries_[entry].detail && NSClassFromString(className)) {
      openFromTopPage(className);
    }
  };
  if (!holdBack(row->detail(), row, open)) {
    open();
  }
}

void SettingsListController::openFromTopPage(const std::string& className) {
  const auto page = cast<PSListController>(navigationController()->topViewController());
  const auto rows = page ? page->specifiers() : PSSpecifiers();
  const auto found = std::ranges::find(rows, className, &PSSpecifier::detail);
  const auto row = found == rows.end() ? nullptr : *found;
  const auto open = [this, className, row] {
    navigationController()->pushViewControllerAnimated(makePane(className, row), false);
  };
  if (!holdBack(className, row, open)) {
    open();
  }
}

bool SettingsListController::holdBack(const std::string& className,
                                      const std::shared_ptr<PSSpecifier>& row,
                                      std::function<void()> open) {
  if (!record_->tookProgramDown(className)) {
    return false;
  }
  const auto openInItsPlace = [this, open = std::move(open)] {
    navigationController()->popViewControllerAnimated(false);
    open();
  };
  navigationController()->pushViewControllerAnimated(
      HeldBackController::forPane(className, row, openInItsPlace), false);
  return true;
}
