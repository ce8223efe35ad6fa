#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "linux/BundleEntry.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"
#include "settings/bundles/BundleLoader.h"
#include "settings/bundles/OpeningRecord.h"

/// The application's own first page: one row for each installed bundle, and below them rows for
/// pages of the program's own. A bundle's module is opened when its row is first tapped. Main
/// thread.
class SettingsListController : public Subclass<SettingsListController, PSListController> {
 public:
  /// A page of the program's own.
  struct OwnPage {
    std::string label;
    std::string className;  ///< Of the page.
    std::function<std::shared_ptr<PSListController>()> make;
  };

  static const ClassOf<SettingsListController> classObject;

  static std::shared_ptr<SettingsListController> withEntries(std::vector<BundleEntry> entries,
                                                             std::shared_ptr<BundleLoader> loader,
                                                             std::shared_ptr<OpeningRecord> record,
                                                             std::vector<OwnPage> ownPages = {});

  const PSSpecifiers& specifiers() override;
  void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

  /// Opens the pane of that class: the page of the bundle that knows it, and on top of that the
  /// pane itself, through the row that leads to it where that page has one. A page that took the
  /// program down the last time is held back: a page that says so comes in its place.
  void openPane(const std::string& className);

 private:
  void open(std::size_t entry, bool animated);
  void openInEntry(std::size_t entry, const std::string& className);
  void openFromTopPage(const std::string& className);
  bool holdBack(const std::string& className, const std::shared_ptr<PSSpecifier>& row,
                std::function<void()> open);

  std::vector<BundleEntry> entries_;
  std::vector<OwnPage> ownPages_;
  std::shared_ptr<BundleLoader> loader_;
  std::shared_ptr<OpeningRecord> record_;
};
