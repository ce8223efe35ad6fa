#pragma once

#include <memory>
#include <optional>

#include "core/export.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSListController.h"
#include "root/TweakList.h"

/// The bundle's first pane. Each time it comes into sight it asks the maker's catalogue, in the
/// background, how many tweaks there are that the user has not been shown, and badges a row with
/// the number. Main thread unless an operation says otherwise.
class QDPreferencesListController : public Subclass<QDPreferencesListController, PSListController> {
 public:
  static const ClassOf<QDPreferencesListController> classObject;

  /// Registers the observer that applies settings after each change. The registration is never
  /// removed and outlives the pane; each pane that is made adds one.
  bool init() override;

  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
  /// Action of a row: applies the settings once more.
  void applyChangedSettings();
  void viewDidLoad() override;
  /// The tweaks of the catalogue that the user has not been shown, in its order, which become the
  /// process-wide list. Null, and nothing becomes of the list, before a catalogue was fetched. Any
  /// thread.
  std::shared_ptr<const Tweaks> getUnseenTweaks();
  /// Action of the heart: a sheet for sharing.
  void showLove();
  void viewWillAppear(bool animated) override;
  const PSSpecifiers& specifiers() override;
  /// Where the update row is shown, the first row's separator runs the full width.
  std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                  NSIndexPath indexPath) override;
  /// Action of the update row: the package manager's page of this package.
  void installUpdate();

  /// The value stored under the row's `key`, else the row's `default`, else nothing.
  std::optional<PropertyListValue> readPreferenceValue(const PSSpecifier& specifier);
  /// Stores the value under the row's `key`, even when it is stored already.
  void setPreferenceValueSpecifier(const PropertyListValue& value, const PSSpecifier& specifier);

  bool updateAvailable() const { return _updateAvailable; }

 private:
  std::shared_ptr<PSSpecifier> makeUpdateRow();
  void fetchCatalogue();

  bool _updateAvailable = false;
};

/// The pane that was last loaded and its navigation item, for code outside the bundle. Null until a
/// pane has been loaded; what they point to then lives as long as the process and refers weakly.
extern QD_EXPORT std::weak_ptr<QDPreferencesListController>* preferencesListController;
extern QD_EXPORT std::weak_ptr<UINavigationItem>* navigationItem;
