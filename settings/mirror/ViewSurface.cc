#include "settings/mirror/ViewSurface.h"

#include <QQmlEngine>

#include "platform/uikit/UIView.h"
#include "settings/mirror/ViewItem.h"

namespace {

// The first item that takes the keyboard for the page; null for none.
ViewItem* pageFocusIn(const QQuickItem& item) {
  for (auto* child : item.childItems()) {
    auto* view = qobject_cast<ViewItem*>(child);
    if (view && view->takesPageFocus()) {
      return view;
    }
    if (auto* found = pageFocusIn(*child)) {
      return found;
    }
  }
  return nullptr;
}

}  // namespace

ViewSurface::ViewSurface(QQuickItem* parent) : QQuickItem(parent) {}

ViewSurface::~ViewSurface() {
  if (mirror_) {
    mirror_->remove(*this);
  }
}

void ViewSurface::setRoot(const ViewHandle& root) {
  if (root == root_) {
    return;
  }
  root_ = root;
  for (auto* child : childItems()) {
    child->setParentItem(nullptr);
    child->deleteLater();
  }
  fit();
  emit rootChanged();
}

void ViewSurface::setLive(bool live) {
  if (live == live_) {
    return;
  }
  live_ = live;
  fit();
  emit liveChanged();
}

void ViewSurface::componentComplete() {
  QQuickItem::componentComplete();
  if (const auto* engine = qmlEngine(this)) {
    mirror_ = engine->property("viewMirror").value<ViewMirror*>();
  }
  if (mirror_) {
    mirror_->add(*this);
  }
  fit();
}

void ViewSurface::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  QQuickItem::geometryChange(newGeometry, oldGeometry);
  if (newGeometry.size() != oldGeometry.size()) {
    fit();
  }
}

void ViewSurface::fit() {
  if (!root_ || !live_) {
    return;
  }
  if (!fillsSurface_) {
    setImplicitSize(root_->frame().size.width, root_->frame().size.height);
  } else if (width() > 0 && height() > 0) {
    const CGRect frame = CGRectMake(0, 0, width(), height());
    // What holds the page has its size, from which mirrored places are counted.
    if (const auto holder = root_->superview()) {
      holder->setFrame(frame);
    }
    root_->setFrame(frame);
  }
  if (mirror_) {
    mirror_->scheduleCommit();
  }
}

void ViewSurface::layOut() {
  if (!root_ || !live_) {
    return;
  }
  root_->layoutIfNeeded();
  auto& item = mirror_->itemFor(*root_);
  if (item.parentItem() != this) {
    item.setParentItem(this);
    item.setParent(this);
    if (hasActiveFocus()) {
      takeFocus();
    }
  }
}

void ViewSurface::takeFocus() {
  if (auto* view = pageFocusIn(*this)) {
    view->forceActiveFocus(Qt::OtherFocusReason);
  } else {
    forceActiveFocus(Qt::OtherFocusReason);
  }
}
