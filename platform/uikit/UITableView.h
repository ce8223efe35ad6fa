#pragma once

#include <memory>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/NSIndexPath.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UITableViewCell.h"
#include "platform/uikit/UIView.h"

class UITableView;

/// Gives a table its rows. Called on the main thread while the table lays itself out.
class PLATFORM_API UITableViewDataSource {
 public:
  virtual ~UITableViewDataSource();
  virtual int numberOfSectionsInTableView(UITableView& table) = 0;
  virtual int tableViewNumberOfRowsInSection(UITableView& table, int section) = 0;
  virtual std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(
      UITableView& table, NSIndexPath indexPath) = 0;
};

/// Gives a table its measures, in points, and takes the user's choice. The measures are asked on
/// the main thread while the table lays itself out.
class PLATFORM_API UITableViewDelegate {
 public:
  virtual ~UITableViewDelegate();
  virtual CGFloat tableViewHeightForRowAtIndexPath(UITableView& table, NSIndexPath indexPath) = 0;
  virtual std::shared_ptr<UIView> tableViewViewForHeaderInSection(UITableView& table,
                                                                  int section) = 0;
  virtual std::shared_ptr<UIView> tableViewViewForFooterInSection(UITableView& table,
                                                                  int section) = 0;
  virtual CGFloat tableViewHeightForHeaderInSection(UITableView& table, int section,
                                                    UIView& header) = 0;
  virtual CGFloat tableViewHeightForFooterInSection(UITableView& table, int section,
                                                    UIView& footer) = 0;
  virtual void tableViewDidSelectRowAtIndexPath(UITableView& table, NSIndexPath indexPath) = 0;
};

/// A grouped list. It lays out all its rows itself: for every row in order the height is asked,
/// then for every row in order the cell; another width asks for the heights alone. Rows are never
/// recycled, and a view that the table is given again stays where it is. Whoever is asked may
/// reload the table: what is under way is then dropped, and everything asked anew. Main thread.
class PLATFORM_API UITableView : public Subclass<UITableView, UIView> {
 public:
  static const ClassOf<UITableView> classObject;

  bool initWithFrame(CGRect frame) override;

  /// Both are held without owning them and must outlive their use: the owner of the table resets
  /// them before it goes.
  void setDataSource(UITableViewDataSource* dataSource);
  void setDelegate(UITableViewDelegate* delegate);

  /// The view that holds every header, row and footer; its width is the width offered to cells.
  const std::shared_ptr<UIView>& wrapperView() const { return wrapperView_; }
  /// The whole list's size, of which the table shows a part.
  CGSize contentSize() const { return wrapperView_->frame().size; }

  /// Sections and rows have changed, or everything is to be measured again: the next layout asks
  /// for all of it.
  void reloadData();
  /// The next layout asks for that row's height and cell again.
  void reloadRowAtIndexPath(NSIndexPath indexPath);
  /// The next layout asks for every row's height again; the cells stay.
  void reloadRowHeights();

  /// The cell as last laid out; null for a place that is not there.
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(NSIndexPath indexPath) const;
  std::shared_ptr<UIView> headerViewForSection(int section) const;
  std::shared_ptr<UIView> footerViewForSection(int section) const;
  /// Where a cell of the table stands; nothing for a cell that is not in it.
  std::optional<NSIndexPath> indexPathForCell(const UITableViewCell& cell) const;

  /// For the host: the user has tapped the row. Nothing happens for a place that is not there.
  void tapRow(NSIndexPath indexPath);

  void layoutSubviews() override;

 private:
  struct Row {
    CGFloat height = 0;
    std::shared_ptr<UITableViewCell> cell;
    bool stale = true;
  };
  struct Section {
    std::shared_ptr<UIView> header;
    CGFloat headerHeight = 0;
    std::vector<Row> rows;
    std::shared_ptr<UIView> footer;
    CGFloat footerHeight = 0;
  };

  const Row* rowAt(NSIndexPath indexPath) const;
  /// Whether what is being laid out is out of date: the table was reloaded, or its owner has gone.
  bool isInterrupted() const { return allStale_ || !dataSource_ || !delegate_; }
  template <class Action>
  static void forEachView(const std::vector<Section>& sections, Action&& action);
  void stand(const std::shared_ptr<UIView>& view);
  void adopt(Row& row, const std::shared_ptr<UITableViewCell>& cell);
  void removeFormerViews();
  // False once interrupted.
  bool layOutRows();
  bool countRows();
  bool refreshStaleRows();
  bool placeEverything();

  UITableViewDataSource* dataSource_ = nullptr;
  UITableViewDelegate* delegate_ = nullptr;
  std::shared_ptr<UIView> wrapperView_;
  std::vector<Section> sections_;
  // What stood in the table when its rows were counted again. A view that is given again never
  // leaves: it would start anew what it had ended.
  std::vector<std::shared_ptr<UIView>> former_;
  bool allStale_ = true;
  bool heightsStale_ = false;
  bool layingOut_ = false;
};
