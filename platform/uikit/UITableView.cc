#include "platform/uikit/UITableView.h"

#include <utility>

#include "platform/uikit/metrics.h"

constexpr ClassDescription UITableView::classObject{
    "UITableView", &UIView::classObject, &allocObject<UITableView>, {}};

UITableViewDataSource::~UITableViewDataSource() = default;
UITableViewDelegate::~UITableViewDelegate() = default;

namespace {

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
  if (!dataSource_ || !delegate_) {
    return;
  }
  const CGFloat width = bounds().size.width;
  if (width != wrapperView_->frame().size.width) {
    allStale_ = true;
  }
  wrapperView_->setFrame(CGRectMake(0, 0, width, wrapperView_->frame().size.height));
  if (std::exchange(allStale_, false)) {
    countRows();
  }
  refreshStaleRows();
  placeEverything();
}

void UITableView::countRows() {
  std::vector<Section> former = std::move(sections_);
  sections_.clear();
  const int count = dataSource_->numberOfSectionsInTableView(*this);
  for (int index = 0; index < count; ++index) {
    Section section;
    section.rows.resize(dataSource_->tableViewNumberOfRowsInSection(*this, index));
    section.header = delegate_->tableViewViewForHeaderInSection(*this, index);
    section.footer = delegate_->tableViewViewForFooterInSection(*this, index);
    sections_.push_back(std::move(section));
  }
  for (const auto& section : former) {
    section.header->removeFromSuperview();
    section.footer->removeFromSuperview();
    for (const auto& row : section.rows) {
      if (row.cell) {
        row.cell->removeFromSuperview();
      }
    }
  }
  for (const auto& section : sections_) {
    wrapperView_->addSubview(section.header);
    wrapperView_->addSubview(section.footer);
  }
}

void UITableView::refreshStaleRows() {
  const auto forEachRow = [this](auto&& action) {
    for (std::size_t section = 0; section < sections_.size(); ++section) {
      for (std::size_t row = 0; row < sections_[section].rows.size(); ++row) {
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
    if (row.stale) {
      adopt(row, dataSource_->tableViewCellForRowAtIndexPath(*this, indexPath));
      row.stale = false;
    }
  });
}

void UITableView::adopt(Row& row, const std::shared_ptr<UITableViewCell>& cell) {
  if (row.cell && row.cell != cell) {
    row.cell->removeFromSuperview();
  }
  row.cell = cell;
  if (cell->superview() != wrapperView_) {
    wrapperView_->addSubview(cell);
  }
}

void UITableView::placeEverything() {
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
    section.footerHeight =
        delegate_->tableViewHeightForFooterInSection(*this, number, *section.footer);
    place(*section.header, section.headerHeight);
    for (std::size_t row = 0; row < section.rows.size(); ++row) {
      section.rows[row].cell->setPosition(positionOf(row, section.rows.size()));
      place(*section.rows[row].cell, section.rows[row].height);
    }
    place(*section.footer, section.footerHeight);
  }
  wrapperView_->setFrame(CGRectMake(0, 0, width, y));
}
