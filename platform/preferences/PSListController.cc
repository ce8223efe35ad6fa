#include "platform/preferences/PSListController.h"

#include <algorithm>
#include <utility>

#include "platform/foundation/Subclass.h"
#include "platform/preferences/MissingPaneController.h"
#include "platform/preferences/PSEditableTableCell.h"
#include "platform/preferences/SpecifierListReader.h"
#include "platform/uikit/UIApplication.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITableViewHeaderFooterView.h"
#include "platform/uikit/metrics.h"

constexpr ClassOf<PSListController> PSListController::classObject{"PSListController"};

namespace {

// Holds a pane's table and whatever else the pane adds, and keeps the table at its own size.
class PaneView : public Subclass<PaneView, UIView> {
 public:
  static const ClassOf<PaneView> classObject;

  void setTable(const std::shared_ptr<UITableView>& table) {
    table_ = table;
    addSubview(table);
  }
  void layoutSubviews() override {
    UIView::layoutSubviews();
    table_->setFrame(bounds());
    // What else the pane has added may be what a row's height is taken from.
    table_->reloadRowHeights();
  }

 private:
  std::shared_ptr<UITableView> table_;
};

// To whoever asks, this is a plain view.
constexpr ClassOf<PaneView> PaneView::classObject{"UIView"};

NSTextAlignment alignmentOf(const PSSpecifier& group) {
  const auto number = integerOrZero(group.plistForKey("alignment"));
  return number == static_cast<int>(NSTextAlignment::kCenter) ? NSTextAlignment::kCenter
                                                              : NSTextAlignment::kNatural;
}

PaneObserver*& currentPaneObserver() {
  static PaneObserver* observer = nullptr;
  return observer;
}

}  // namespace

PSListController::~PSListController() {
  if (table_) {
    table_->setDataSource(nullptr);
    table_->setDelegate(nullptr);
  }
}

const PSSpecifiers& PSListController::specifiers() {
  return specifiers_;
}

PSSpecifiers PSListController::loadSpecifiersFromPlistNameTarget(
    std::string_view name, const std::shared_ptr<NSObject>& target) {
  const auto ownBundle = bundle();
  if (!ownBundle) {
    return {};
  }
  auto list = readSpecifierList(*ownBundle, name, target);
  if (!list.title.empty()) {
    setTitle(list.title);
  }
  return std::move(list.specifiers);
}

std::shared_ptr<const NSBundle> PSListController::bundle() const {
  return NSBundle::bundleForClass(classDescription());
}

void PSListController::setSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
  specifier_ = specifier;
  if (specifier && title().empty()) {
    setTitle(specifier->name());
  }
}

std::shared_ptr<PSSpecifier> PSListController::specifierForID(std::string_view identifier) const {
  const std::lock_guard lock(specifiersMutex_);
  const auto found = std::ranges::find_if(
      specifiers_, [&](const auto& specifier) { return specifier->identifier() == identifier; });
  return found == specifiers_.end() ? nullptr : *found;
}

std::shared_ptr<PSSpecifier> PSListController::specifierAtIndex(int index) const {
  return index >= 0 && static_cast<std::size_t>(index) < specifiers_.size() ? specifiers_[index]
                                                                            : nullptr;
}

std::optional<int> PSListController::indexForIndexPath(NSIndexPath indexPath) const {
  if (indexPath.section < 0 || static_cast<std::size_t>(indexPath.section) >= sections_.size()) {
    return std::nullopt;
  }
  const auto& section = sections_[indexPath.section];
  if (indexPath.row < 0 || indexPath.row >= section.rowCount) {
    return std::nullopt;
  }
  return section.firstRow + indexPath.row;
}

std::optional<int> PSListController::sectionForIndex(int index) const {
  if (!specifierAtIndex(index)) {
    return std::nullopt;
  }
  for (std::size_t number = 0; number < sections_.size(); ++number) {
    if (index < sections_[number].firstRow + sections_[number].rowCount) {
      return static_cast<int>(number);
    }
  }
  return std::nullopt;
}

std::optional<NSIndexPath> PSListController::indexPathForIndex(int index) const {
  const auto section = sectionForIndex(index);
  if (!section || index < sections_[*section].firstRow) {
    return std::nullopt;
  }
  return NSIndexPath{*section, index - sections_[*section].firstRow};
}

void PSListController::setSpecifiers(PSSpecifiers specifiers) {
  {
    const std::lock_guard lock(specifiersMutex_);
    // What was there goes with the argument, outside the lock.
    specifiers_.swap(specifiers);
  }
  divideIntoSections();
  std::erase_if(cells_, [this](const auto& entry) {
    return std::ranges::none_of(
        specifiers_, [&](const auto& specifier) { return specifier.get() == entry.first; });
  });
  if (table_) {
    table_->reloadData();
  }
}

void PSListController::divideIntoSections() {
  sections_.clear();
  for (std::size_t index = 0; index < specifiers_.size(); ++index) {
    const auto& specifier = specifiers_[index];
    if (specifier->cellType() == PSCellType::kGroup) {
      sections_.push_back({specifier, static_cast<int>(index) + 1, 0});
      continue;
    }
    if (sections_.empty()) {
      sections_.push_back({nullptr, 0, 0});
    }
    ++sections_.back().rowCount;
  }
}

void PSListController::reloadSpecifierAnimated(const std::shared_ptr<PSSpecifier>& specifier,
                                               bool /*animated*/) {
  const auto found = std::ranges::find(specifiers_, specifier);
  if (!specifier || found == specifiers_.end()) {
    return;
  }
  const auto indexPath = indexPathForIndex(static_cast<int>(found - specifiers_.begin()));
  if (!indexPath) {
    if (table_) {
      table_->reloadData();
    }
    return;
  }
  cells_.erase(specifier.get());
  if (table_) {
    table_->reloadRowAtIndexPath(*indexPath);
  }
}

void PSListController::reloadSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
  reloadSpecifierAnimated(specifier, false);
}

void PSListController::reloadSpecifierIDAnimated(std::string_view identifier, bool animated) {
  reloadSpecifierAnimated(specifierForID(identifier), animated);
}

void PSListController::replaceContiguousSpecifiersWithSpecifiersAnimated(
    const PSSpecifiers& current, const PSSpecifiers& replacement, bool /*animated*/) {
  const auto run =
      std::search(specifiers_.begin(), specifiers_.end(), current.begin(), current.end());
  if (current.empty() || run == specifiers_.end()) {
    return;
  }
  const auto runEnd = run + static_cast<std::ptrdiff_t>(current.size());
  PSSpecifiers changed(specifiers_.begin(), run);
  changed.insert(changed.end(), replacement.begin(), replacement.end());
  changed.insert(changed.end(), runEnd, specifiers_.end());
  setSpecifiers(std::move(changed));
}

const std::shared_ptr<UITableView>& PSListController::table() {
  view();
  return table_;
}

std::shared_ptr<UIView> PSListController::loadView() {
  table_ = allocInit<UITableView>();
  table_->setDataSource(this);
  table_->setDelegate(this);
  auto view = allocInit<PaneView>();
  view->setTable(table_);
  return view;
}

void PSListController::viewWillAppear(bool animated) {
  UIViewController::viewWillAppear(animated);
  specifiers();
  table()->reloadData();
}

void PSListController::viewWillDisappear(bool animated) {
  UIViewController::viewWillDisappear(animated);
  // What is being typed is committed before the page goes.
  view()->endEditing(true);
}

void PSListController::selectSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
  if (specifier->cellType() == PSCellType::kGroup ||
      specifier->cellType() == PSCellType::kEditText) {
    return;
  }
  if (specifier->detail().empty()) {
    specifier->performAction();
    return;
  }
  if (const auto navigation = navigationController()) {
    navigation->pushViewControllerAnimated(makePane(specifier->detail(), specifier), true);
  }
}

int PSListController::numberOfSectionsInTableView(UITableView& /*table*/) {
  return static_cast<int>(sections_.size());
}

int PSListController::tableViewNumberOfRowsInSection(UITableView& /*table*/, int section) {
  return section >= 0 && static_cast<std::size_t>(section) < sections_.size()
             ? sections_[section].rowCount
             : 0;
}

std::shared_ptr<UITableViewCell> PSListController::tableViewCellForRowAtIndexPath(
    UITableView& /*table*/, NSIndexPath indexPath) {
  const auto index = indexForIndexPath(indexPath);
  const auto specifier = specifierAtIndex(index.value_or(-1));
  if (!specifier) {
    return nullptr;
  }
  if (const auto kept = cells_.find(specifier.get()); kept != cells_.end()) {
    return kept->second;
  }
  auto cell = makeCell(specifier);
  // Setting the cell up may have changed the rows.
  if (std::ranges::find(specifiers_, specifier) != specifiers_.end()) {
    cells_[specifier.get()] = cell;
  }
  return cell;
}

std::shared_ptr<PSTableCell> PSListController::makeCell(
    const std::shared_ptr<PSSpecifier>& specifier) const {
  const auto* description = specifier->classForKey("cellClass");
  if (!description || !description->isSubclassOf(PSTableCell::classObject)) {
    description = &PSTableCell::classObject;
    if (specifier->cellType() == PSCellType::kEditText) {
      description = &PSEditableTableCell::classObject;
    }
  }
  const auto style = PSTableCell::styleForCellType(specifier->cellType());
  auto cell = cast<PSTableCell>(description->alloc());
  if (cell->initWithStyleReuseIdentifierSpecifier(style, std::string(description->name),
                                                  specifier)) {
    return cell;
  }
  // A class that cannot be set up still leaves a row in its place.
  auto plain = alloc<PSTableCell>();
  plain->initWithStyleReuseIdentifierSpecifier(style, "", specifier);
  return plain;
}

CGFloat PSListController::tableViewHeightForRowAtIndexPath(UITableView& table,
                                                           NSIndexPath indexPath) {
  const auto specifier = specifierAtIndex(indexForIndexPath(indexPath).value_or(-1));
  const auto height = specifier ? integerOrZero(specifier->plistForKey("height")) : 0;
  if (height > 0) {
    return static_cast<CGFloat>(height);
  }
  // At the usual text sizes no cell is asked, so that none is built before all heights are known.
  const auto category = UIApplication::sharedApplication().preferredContentSizeCategory();
  const auto cell = category > UIContentSizeCategory::kLarge
                        ? tableViewCellForRowAtIndexPath(table, indexPath)
                        : nullptr;
  return cell ? cell->standardHeightForWidth(table.wrapperView()->frame().size.width)
              : metrics::kRowHeight;
}

std::shared_ptr<UIView> PSListController::makeSectionEdge(int section, bool header) const {
  // A copy: setting the header up may change the rows.
  const auto group = section >= 0 && static_cast<std::size_t>(section) < sections_.size()
                         ? sections_[section].group
                         : nullptr;
  if (header && group) {
    const auto* description = group->classForKey("headerCellClass");
    if (description && description->isSubclassOf(UIView::classObject)) {
      auto view = cast<UIView>(description->alloc());
      if (view->init()) {
        return view;
      }
    }
  }
  auto view = alloc<UITableViewHeaderFooterView>();
  view->initWithEdge(header ? UITableViewSectionEdge::kHeader : UITableViewSectionEdge::kFooter);
  if (group) {
    view->textLabel()->setText(header ? group->name()
                                      : group->textForKey("footerText").value_or(""));
    view->textLabel()->setTextAlignment(alignmentOf(*group));
  }
  return view;
}

std::shared_ptr<UIView> PSListController::tableViewViewForHeaderInSection(UITableView& /*table*/,
                                                                          int section) {
  return makeSectionEdge(section, true);
}

std::shared_ptr<UIView> PSListController::tableViewViewForFooterInSection(UITableView& /*table*/,
                                                                          int section) {
  return makeSectionEdge(section, false);
}

CGFloat PSListController::tableViewHeightForHeaderInSection(UITableView& table, int section,
                                                            UIView& header) {
  const auto* text = dynamic_cast<const UITableViewHeaderFooterView*>(&header);
  return text ? text->preferredHeightForWidth(table.wrapperView()->frame().size.width, section == 0)
              : metrics::kGroupGap;
}

CGFloat PSListController::tableViewHeightForFooterInSection(UITableView& table, int section,
                                                            UIView& footer) {
  const auto* text = dynamic_cast<const UITableViewHeaderFooterView*>(&footer);
  const CGFloat height =
      text ? text->preferredHeightForWidth(table.wrapperView()->frame().size.width, false) : 0;
  const bool last = section + 1 == static_cast<int>(sections_.size());
  return last ? height + metrics::kGroupGap / 2 : height;
}

void PSListController::tableViewDidSelectRowAtIndexPath(UITableView& /*table*/,
                                                        NSIndexPath indexPath) {
  if (const auto specifier = specifierAtIndex(indexForIndexPath(indexPath).value_or(-1))) {
    selectSpecifier(specifier);
  }
}

void setPaneObserver(PaneObserver* observer) {
  currentPaneObserver() = observer;
}

std::shared_ptr<UIViewController> makePane(const std::string& className,
                                           const std::shared_ptr<PSSpecifier>& specifier) {
  const auto* description = NSClassFromString(className);
  if (!description) {
    return MissingPaneController::forClass(className, MissingPaneReason::kNoSuchClass, specifier);
  }
  if (!description->isSubclassOf(UIViewController::classObject)) {
    return MissingPaneController::forClass(className, MissingPaneReason::kNoPane, specifier);
  }
  if (auto* observer = currentPaneObserver()) {
    observer->paneWillBeMade(className);
  }
  auto pane = cast<UIViewController>(description->alloc());
  if (!pane->init()) {
    return MissingPaneController::forClass(className, MissingPaneReason::kNotMade, specifier);
  }
  if (const auto list = cast<PSListController>(pane)) {
    list->setSpecifier(specifier);
  }
  return pane;
}
