#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/api.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/Subclass.h"
#include "platform/preferences/PSSpecifier.h"
#include "platform/preferences/PSTableCell.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UIViewController.h"

/// A pane: a list of rows (specifiers) shown in a grouped table.
///
/// A pane comes up in this order: init, the view loads, viewDidLoad, the rows are built,
/// viewWillAppear:, layout. Loading the view never asks for rows. Main thread.
class PLATFORM_API PSListController : public Subclass<PSListController, UIViewController>,
                                      public UITableViewDataSource,
                                      public UITableViewDelegate {
 public:
  static const ClassOf<PSListController> classObject;
  ~PSListController() override;

  /// The pane's rows. Overrides build them on the first call, with setSpecifiers, and give the kept
  /// list afterwards. Where there are none, an empty list.
  virtual const PSSpecifiers& specifiers();

  /// The rows of the list resource `name` of the pane's bundle, with `target` for their selectors;
  /// the resource's title becomes the pane's. Empty when the resource is missing or no list.
  PSSpecifiers loadSpecifiersFromPlistNameTarget(std::string_view name,
                                                 const std::shared_ptr<NSObject>& target);

  /// The bundle of the pane's class; null where the class belongs to none.
  std::shared_ptr<const NSBundle> bundle() const;

  /// The row in the parent list that opened the pane; null when nothing did.
  const std::shared_ptr<PSSpecifier>& specifier() const { return specifier_; }
  void setSpecifier(const std::shared_ptr<PSSpecifier>& specifier);

  /// Looking a row up never builds the list. Null or nothing for what is not there. By identifier
  /// on any thread.
  std::shared_ptr<PSSpecifier> specifierForID(std::string_view identifier) const;
  std::shared_ptr<PSSpecifier> specifierAtIndex(int index) const;
  std::optional<int> indexForIndexPath(NSIndexPath indexPath) const;
  /// Nothing for a group, which is a header and no row of the table.
  std::optional<NSIndexPath> indexPathForIndex(int index) const;
  /// The section that the flat index belongs to; nothing for what is not there.
  std::optional<int> sectionForIndex(int index) const;

  /// Drops the row's cell; the next layout builds a new one from the row as it then is. Nothing
  /// happens for a row that is not in the list.
  void reloadSpecifierAnimated(const std::shared_ptr<PSSpecifier>& specifier, bool animated);
  void reloadSpecifier(const std::shared_ptr<PSSpecifier>& specifier);
  virtual void reloadSpecifierIDAnimated(std::string_view identifier, bool animated);

  /// Puts `replacement` in the place of `current`, which must stand in the list in one run and in
  /// that order; else nothing happens.
  void replaceContiguousSpecifiersWithSpecifiersAnimated(const PSSpecifiers& current,
                                                         const PSSpecifiers& replacement,
                                                         bool animated);

  /// The pane's table; loads the view.
  const std::shared_ptr<UITableView>& table();

  void viewWillAppear(bool animated) override;
  void viewWillDisappear(bool animated) override;

  /// What a tap on the row does: a row that leads to a pane pushes it, else its action is called.
  /// Group headers, text fields and rows with neither do nothing.
  void selectSpecifier(const std::shared_ptr<PSSpecifier>& specifier);

  // The table's questions. A cell is kept for its row until the row is reloaded, and belongs to no
  // other row.
  int numberOfSectionsInTableView(UITableView& table) override;
  int tableViewNumberOfRowsInSection(UITableView& table, int section) override;
  std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                  NSIndexPath indexPath) override;
  CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;
  std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView& table, int section) override;
  std::shared_ptr<UIView> tableViewViewForFooterInSection(UITableView& table, int section) override;
  CGFloat tableViewHeightForHeaderInSection(UITableView& table, int section,
                                            UIView& header) override;
  CGFloat tableViewHeightForFooterInSection(UITableView& table, int section,
                                            UIView& footer) override;
  void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) override;

 protected:
  std::shared_ptr<UIView> loadView() override;

  /// False until setSpecifiers has kept a row.
  bool hasSpecifiers() const { return !specifiers_.empty(); }
  const PSSpecifiers& keptSpecifiers() const { return specifiers_; }
  /// Keeps these rows in this order; the next layout shows them. A row that was kept before keeps
  /// its cell, the cells of rows that are gone are dropped.
  void setSpecifiers(PSSpecifiers specifiers);

 private:
  struct Section {
    std::shared_ptr<PSSpecifier> group;  // null for rows that stand before the first group
    int firstRow = 0;
    int rowCount = 0;
  };

  void divideIntoSections();
  std::shared_ptr<PSTableCell> makeCell(const std::shared_ptr<PSSpecifier>& specifier) const;
  std::shared_ptr<UIView> makeSectionEdge(int section, bool header) const;

  // Written on the main thread only, so that reading there needs no lock.
  mutable std::mutex specifiersMutex_;
  PSSpecifiers specifiers_;
  std::vector<Section> sections_;
  std::map<const PSSpecifier*, std::shared_ptr<PSTableCell>> cells_;
  std::shared_ptr<PSSpecifier> specifier_;
  std::shared_ptr<UITableView> table_;
};

/// Hears of each pane before anything of it runs, for a host that has to know which one took the
/// program down. Main thread.
class PaneObserver {
 public:
  virtual ~PaneObserver() = default;
  virtual void paneWillBeMade(const std::string& className) = 0;
};

/// The one observer of all panes; null for none. It stays until another takes its place.
PLATFORM_API void setPaneObserver(PaneObserver* observer);

/// Makes a pane by the name of its class: alloc, init, then the row that opened it. A name that no
/// class answers to, or a class that is no pane or cannot be made, gives a pane that says so; it is
/// never null.
PLATFORM_API std::shared_ptr<UIViewController> makePane(
    const std::string& className, const std::shared_ptr<PSSpecifier>& specifier);
