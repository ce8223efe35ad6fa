#pragma once

#include <memory>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UIView.h"

enum class UITableViewSectionEdge { kHeader, kFooter };

/// The text above or below a group. A header's letters are shown as capitals and stand right above
/// the group, a footer's text stands right below it. Main thread.
class PLATFORM_API UITableViewHeaderFooterView
    : public Subclass<UITableViewHeaderFooterView, UIView> {
 public:
  static const ClassOf<UITableViewHeaderFooterView> classObject;

  bool initWithEdge(UITableViewSectionEdge edge);

  UITableViewSectionEdge edge() const { return edge_; }
  const std::shared_ptr<UILabel>& textLabel() const { return textLabel_; }

  /// The height that the text needs at that width of the view, gaps included; `isFirst` for the
  /// header that opens the table.
  CGFloat preferredHeightForWidth(CGFloat width, bool isFirst) const;

  void layoutSubviews() override;

 private:
  CGFloat textHeight(CGFloat width) const;

  UITableViewSectionEdge edge_ = UITableViewSectionEdge::kHeader;
  std::shared_ptr<UILabel> textLabel_;
};
