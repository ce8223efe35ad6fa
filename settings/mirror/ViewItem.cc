#include "settings/mirror/ViewItem.h"

#include <algorithm>

#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITapGestureRecognizer.h"
#include "platform/uikit/UIView.h"
#include "settings/appearance/Appearance.h"
#include "settings/mirror/ViewMirror.h"

namespace {

// Whether a view below the item keeps taps at that place to itself.
bool isKept(const QQuickItem& item, QPointF place) {
  const auto children = item.childItems();
  return std::ranges::any_of(children, [&](const QQuickItem* child) {
    const auto* view = qobject_cast<const ViewItem*>(child);
    const QPointF there = item.mapToItem(child, place);
    return child->isVisible() &&
           ((view && view->keepsTaps() && child->contains(there)) || isKept(*child, there));
  });
}

}  // namespace

QColor toQColor(const UIColor& color) {
  return Appearance::shared().shown(color);
}

ViewItem::ViewItem(QQuickItem* parent) : AccessibleItem(parent) {}

ViewItem::~ViewItem() {
  if (view_) {
    mirror_->forget(*view_);
  }
}

void ViewItem::attach(UIView& view, ViewMirror& mirror) {
  view_ = &view;
  mirror_ = &mirror;
}

void ViewItem::detach() {
  view_ = nullptr;
}

// Frames are those of a page that runs from left to right.
qreal ViewItem::mirroredX(const CGRect& frame) const {
  const auto superview = Appearance::shared().isMirrored() ? view_->superview() : nullptr;
  return superview ? superview->bounds().size.width - frame.origin.x - frame.size.width
                   : frame.origin.x;
}

bool ViewItem::recognizesTaps() const {
  return view_ && !view_->gestureRecognizers().empty();
}

bool ViewItem::takeOver() {
  if (!view_) {
    return false;
  }
  const CGRect frame = view_->frame();
  setPosition({mirroredX(frame), frame.origin.y});
  setSize({frame.size.width, frame.size.height});
  takeOverVisibility(view_->isHidden());
  color_ = view_->backgroundColor() ? toQColor(*view_->backgroundColor()) : Qt::transparent;
  radius_ = view_->cornerRadius();
  const QColor tint = toQColor(view_->tintColor());
  const bool tinted = tint != tint_;
  tint_ = tint;
  takeOverLook();
  emit lookChanged();
  return tinted;
}

bool ViewItem::ordersByPosition() const {
  const auto table = view_ ? cast<UITableView>(view_->superview()) : nullptr;
  return table && table->wrapperView().get() == view_;
}

void ViewItem::recognizeTap(QPointF place) {
  if (!view_ || isKept(*this, place)) {
    return;
  }
  const auto keptAlive = view_->shared_from_this();
  const auto recognizers = view_->gestureRecognizers();
  for (const auto& recognizer : recognizers) {
    recognizer->recognize();
  }
}
