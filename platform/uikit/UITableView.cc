#include "platform/uikit/UITableView.h"

#include <unordered_set>
#include <utility>

#include "platform/uikit/metrics.h"

constexpr ClassOf<UITableView> UITableView::classObject{"UITableView"};

UITableViewDataSource::~UITableViewDataSource() = default;
UITableViewDelegate::~UITableViewDelegate() = default;

namespace {

// A table that is reloaded each time it is laid out is left to the next layout after so many.
constexpr int kMostPasses = 8;

UITableViewCellPosition positionOf(std::size_t row, std::size_t count) {
  if (count == 1) {
    return UITableViewCellPosition::kSingle;
  }
  if (row == 0) {
    return UITableViewCellPosition::kFirst;
  }
  return row + 1 == count ? UITableViewCellPosition::kLast : UITableViewCellPosition::kMiddle;
}

}  // namespace

bool UITableView::initWithFrame(CGRect frame) {
  if (!UIView::initWithFrame(frame)) {
    return false;
  }
  wrapperView_ = allocInit<UIView>();
  addSubview(wrapperView_);
  return true;
}

void UITableView::setDataSource(UITableViewDataSource* dataSource) {
  dataSource_ = dataSource;
}

void UITableView::setDelegate(UITableViewDelegate* delegate) {
  delegate_ = delegate;
}

void UITableView::reloadData() {
  allStale_ = true;
  setNeedsLayout();
}

void UITableView::reloadRowAtIndexPath(NSIndexPath indexPath) {
  if (rowAt(indexPath)) {
    sections_[indexPath.section].rows[indexPath.row].stale = true;
    setNeedsLayout();
  }
}

void UITableView::reloadRowHeights() {
  heightsStale_ = true;
  setNeedsLayout();
}

const UITableView::Row* UITableView::rowAt(NSIndexPath indexPath) const {
  if (indexPath.section < 0 || static_cast<std::size_t>(indexPath.section) >= sections_.size()) {
    return nullptr;
  }
  const auto& rows = sections_[indexPath.section].rows;
  if (indexPath.row < 0 || static_cast<std::size_t>(indexPath.row) >= rows.size()) {
    return nullptr;
  }
  return &rows[indexPath.row];
}

std::shared_ptr<UITableViewCell> UITableView::cellForRowAtIndexPath(NSIndexPath indexPath) const {
  const auto* row = rowAt(indexPath);
  return row ? row->cell : nullptr;
}

std::shared_ptr<UIView> UITableView::headerViewForSection(int section) const {
  return section >= 0 && static_cast<std::size_t>(section) < sections_.size()
             ? sections_[section].header
             : nullptr;
}

std::shared_ptr<UIView> UITableView::footerViewForSection(int section) const {
  return section >= 0 && static_cast<std::size_t>(section) < sections_.size()
             ? sections_[section].footer
             : nullptr;
}

std::optional<NSIndexPath> UITableView::indexPathForCell(const UITableViewCell& cell) const {
  for (std::size_t section = 0; section < sections_.size(); ++section) {
    const auto& rows = sections_[section].rows;
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (rows[row].cell.get() == &cell) {
        return NSIndexPath{static_cast<int>(section), static_cast<int>(row)};
      }
    }
  }
  return std::nullopt;
}

void UITableView::tapRow(NSIndexPath indexPath) {
  if (delegate_ && rowAt(indexPath)) {
    const auto keptAlive = shared_from_this();
    delegate_->tableViewDidSelectRowAtIndexPath(*this, indexPath);
  }
}

void UITableView::layoutSubviews() {
  UIView::layoutSubviews();
  if (!dataSource_ || !delegate_ || std::exchange(layingOut_, true)) {
    return;
  }
  const CGFloat width = bounds().size.width;
  if (width != wrapperView_->frame().size.width) {
    heightsStale_ = true;
  }
  wrapperView_->setFrame(CGRectMake(0, 0, width, wrapperView_->frame().size.height));
  for (int pass = 0; pass < kMostPasses && !layOutRows() && dataSource_; ++pass) {
  }
  removeFormerViews();
  layingOut_ = false;
}

bool UITableView::layOutRows() {
  return (!std::exchange(allStale_, false) || countRows()) && refreshStaleRows() &&
         placeEverything();
}

bool UITableView::countRows() {
  std::vector<Section> sections;
  const int count = dataSource_->numberOfSectionsInTableView(*this);
  for (int index = 0; index < count && !isInterrupted(); ++index) {
    Section section;
    section.rows.resize(dataSource_->tableViewNumberOfRowsInSection(*this, index));
    if (!isInterrupted()) {
      section.header = delegate_->tableViewViewForHeaderInSection(*this, index);
    }
    if (!isInterrupted()) {
      section.footer = delegate_->tableViewViewForFooterInSection(*this, index);
    }
    sections.push_back(std::move(section));
  }
  if (isInterrupted()) {
    return false;
  }
  sections_.swap(sections);
  forEachView(sections, [this](const auto& view) { former_.push_back(view); });
  for (const auto& section : sections_) {
    stand(section.header);
    stand(section.footer);
  }
  return !isInterrupted();
}

template <class Action>
void UITableView::forEachView(const std::vector<Section>& sections, Action&& action) {
  for (const auto& section : sections) {
    action(section.header);
    action(section.footer);
    for (const auto& row : section.rows) {
      if (row.cell) {
        action(row.cell);
      }
    }
  }
}

void UITableView::stand(const std::shared_ptr<UIView>& view) {
  if (view->superview() != wrapperView_) {
    wrapperView_->addSubview(view);
  }
}

void UITableView::removeFormerViews() {
  const auto former = std::exchange(former_, {});
  if (former.empty()) {
    return;
  }
  std::unordered_set<std::shared_ptr<UIView>> standing;
  forEachView(sections_, [&](const auto& view) { standing.insert(view); });
  for (const auto& view : former) {
    if (!standing.contains(view)) {
      view->removeFromSuperview();
    }
  }
}

bool UITableView::refreshStaleRows() {
  const auto forEachRow = [this](auto&& action) {
    for (std::size_t section = 0; section < sections_.size(); ++section) {
      for (std::size_t row = 0; row < sections_[section].rows.size() && !isInterrupted(); ++row) {
        action(sections_[section].rows[row],
               NSIndexPath{static_cast<int>(section), static_cast<int>(row)});
      }
    }
  };
  const bool allHeights = std::exchange(heightsStale_, false);
  forEachRow([&](Row& row, NSIndexPath indexPath) {
    if (row.stale || allHeights) {
      row.height = delegate_->tableViewHeightForRowAtIndexPath(*this, indexPath);
    }
  });
  forEachRow([this](Row& row, NSIndexPath indexPath) {
    if (std::exchange(row.stale, false)) {
      const auto cell = dataSource_->tableViewCellForRowAtIndexPath(*this, indexPath);
      if (!isInterrupted()) {
        adopt(row, cell);
      }
    }
  });
  return !isInterrupted();
}

void UITableView::adopt(Row& row, const std::shared_ptr<UITableViewCell>& cell) {
  if (row.cell && row.cell != cell) {
    row.cell->removeFromSuperview();
  }
  row.cell = cell;
  stand(cell);
}

bool UITableView::placeEverything() {
  const CGFloat width = wrapperView_->frame().size.width;
  CGFloat y = 0;
  const auto place = [&](UIView& view, CGFloat height) {
    view.setFrame(CGRectMake(0, y, width, height));
    y += height;
  };
  for (std::size_t index = 0; index < sections_.size(); ++index) {
    auto& section = sections_[index];
    const int number = static_cast<int>(index);
    section.headerHeight =
        delegate_->tableViewHeightForHeaderInSection(*this, number, *section.header);
    if (isInterrupted()) {
      return false;
    }
    section.footerHeight =
        delegate_->tableViewHeightForFooterInSection(*this, number, *section.footer);
    if (isInterrupted()) {
      return false;
    }
    place(*section.header, section.headerHeight);
    for (std::size_t row = 0; row < section.rows.size(); ++row) {
      section.rows[row].cell->setPosition(positionOf(row, section.rows.size()));
      place(*section.rows[row].cell, section.rows[row].height);
    }
    place(*section.footer, section.footerHeight);
  }
  wrapperView_->setFrame(CGRectMake(0, 0, width, y));
  return true;
}
