#include "settings/mirror/ViewMirror.h"

#include <QCoreApplication>
#include <QEvent>
#include <QQmlEngine>
#include <QString>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "platform/uikit/UIActivityIndicatorView.h"
#include "platform/uikit/UIButton.h"
#include "platform/uikit/UIImageView.h"
#include "platform/uikit/UILabel.h"
#include "platform/uikit/UISegmentedControl.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITableViewCell.h"
#include "platform/uikit/UITableViewHeaderFooterView.h"
#include "platform/uikit/UITextField.h"
#include "platform/uikit/UIWebView.h"
#include "settings/appearance/Appearance.h"
#include "settings/messages/complain.h"
#include "settings/mirror/ViewItem.h"
#include "settings/mirror/ViewSurface.h"
#include "settings/qml/QmlRuntime.h"

namespace {

struct Kind {
  const ClassDescription* description;
  const char* type;
};

// The QML type that shows a view: that of its class or of the nearest superclass named here.
constexpr std::array<Kind, 11> kKinds{{
    {&UITableView::classObject, "TableView"},
    {&UITableViewCell::classObject, "TableCell"},
    {&UITableViewHeaderFooterView::classObject, "HeaderFooter"},
    {&UITextField::classObject, "TextField"},
    {&UISegmentedControl::classObject, "SegmentedControl"},
    {&UIButton::classObject, "Button"},
    {&UIImageView::classObject, "ImageView"},
    {&UILabel::classObject, "Label"},
    {&UIActivityIndicatorView::classObject, "ActivityIndicatorView"},
    {&UIWebView::classObject, "WebView"},
    {&UIView::classObject, "PlainView"},
}};

// Laying out may ask for more layout; a page that never settles is shown as it is.
constexpr int kMostLayoutRounds = 8;

QEvent::Type commitEvent() {
  static const auto kType = static_cast<QEvent::Type>(QEvent::registerEventType());
  return kType;
}

const char* typeFor(const UIView& view) {
  for (const auto* description = &view.classDescription(); description;
       description = description->superclass) {
    const auto* const kind = std::ranges::find(kKinds, description, &Kind::description);
    if (kind != kKinds.end()) {
      return kind->type;
    }
  }
  return "PlainView";
}

}  // namespace

ViewMirror::ViewMirror(QQmlEngine& engine) : engine_(engine) {
  UIView::setObserver(this);
}

ViewMirror::~ViewMirror() {
  UIView::setObserver(nullptr);
  for (const auto& [view, item] : items_) {
    item->detach();
  }
}

void ViewMirror::add(ViewSurface& surface) {
  surfaces_.push_back(&surface);
  scheduleCommit();
}

void ViewMirror::remove(ViewSurface& surface) {
  std::erase(surfaces_, &surface);
}

QQmlComponent& ViewMirror::componentFor(const UIView& view) {
  const char* type = typeFor(view);
  auto& component = components_[type];
  if (!component) {
    component = std::make_unique<QQmlComponent>(&engine_, QmlRuntime::source(QLatin1String(type)));
  }
  return *component;
}

ViewItem& ViewMirror::itemFor(UIView& view) {
  const auto known = items_.find(&view);
  if (known != items_.end()) {
    return *known->second;
  }
  auto& component = componentFor(view);
  auto* item = qobject_cast<ViewItem*>(component.beginCreate(engine_.rootContext()));
  if (!item) {
    // The types are part of the program; without them nothing can be shown at all.
    complain(component.errorString().trimmed().toStdString());
    std::exit(EXIT_FAILURE);
  }
  item->attach(view, *this);
  items_.emplace(&view, item);
  // With its look there from the start, each text is laid out once.
  if (item->takeOver()) {
    bringOverTint(*item);
  }
  component.completeCreate();
  bringOverSubviews(*item);
  return *item;
}

void ViewMirror::forget(const UIView& view) {
  items_.erase(&view);
}

void ViewMirror::viewChanged(UIView& view) {
  changed_.insert(&view);
  if (!committing_) {
    scheduleCommit();
  }
}

void ViewMirror::viewDestroyed(const UIView& view) {
  changed_.erase(&view);
  const auto known = items_.find(&view);
  if (known != items_.end()) {
    known->second->detach();
    orphans_.emplace_back(known->second);
    items_.erase(known);
    scheduleCommit();
  }
}

void ViewMirror::recognizeTap(QPointF place) {
  // What is told may take items away.
  std::vector<QPointer<ViewItem>> told;
  for (const auto& [view, item] : items_) {
    if (item->recognizesTaps() && item->isVisible() && item->isEnabled() &&
        item->contains(item->mapFromScene(place))) {
      told.emplace_back(item);
    }
  }
  for (const auto& item : told) {
    if (item) {
      item->recognizeTap(item->mapFromScene(place));
    }
  }
}

void ViewMirror::bringOverAll() {
  for (const auto& [view, item] : items_) {
    changed_.insert(view);
  }
  scheduleCommit();
}

void ViewMirror::scheduleCommit() {
  if (!std::exchange(scheduled_, true)) {
    QCoreApplication::postEvent(this, new QEvent(commitEvent()));
  }
}

bool ViewMirror::event(QEvent* event) {
  if (event->type() != commitEvent()) {
    return QObject::event(event);
  }
  if (scheduled_) {
    commit();
  }
  return true;
}

void ViewMirror::commit() {
  if (std::exchange(committing_, true)) {
    return;
  }
  scheduled_ = false;
  for (int round = 0; round < kMostLayoutRounds; ++round) {
    layOut();
    if (changed_.empty()) {
      break;
    }
    for (const auto* view : std::exchange(changed_, {})) {
      // Views that stand nowhere yet have no item; they are read when they get one.
      const auto known = items_.find(view);
      if (known != items_.end()) {
        bringOver(*known->second);
      }
    }
  }
  dropOrphans();
  committing_ = false;
  emit committed();
}

void ViewMirror::layOut() {
  const auto surfaces = surfaces_;
  for (auto* surface : surfaces) {
    // Making an item may run other events, in which a surface may go.
    if (std::ranges::find(surfaces_, surface) != surfaces_.end()) {
      surface->layOut();
    }
  }
}

void ViewMirror::bringOver(ViewItem& item) {
  const qreal width = item.width();
  if (item.takeOver()) {
    bringOverTint(item);
  }
  if (item.width() != width && Appearance::shared().isMirrored()) {
    // Their places count from the other edge.
    for (const auto& subview : item.view()->subviews()) {
      if (const auto known = items_.find(subview.get()); known != items_.end()) {
        known->second->takeOver();
      }
    }
  }
  bringOverSubviews(item);
}

void ViewMirror::bringOverTint(ViewItem& item) {
  for (const auto& subview : item.view()->subviews()) {
    const auto known = items_.find(subview.get());
    if (known != items_.end() && known->second->takeOver()) {
      bringOverTint(*known->second);
    }
  }
}

void ViewMirror::bringOverSubviews(ViewItem& item) {
  auto* container = item.container();
  auto subviews = item.view()->subviews();
  if (item.ordersByPosition()) {
    std::ranges::stable_sort(subviews, {}, [](const auto& view) { return view->frame().origin.y; });
  }
  std::unordered_set<const QQuickItem*> shown;
  QQuickItem* below = nullptr;
  for (const auto& subview : subviews) {
    auto& child = itemFor(*subview);
    shown.insert(&child);
    if (child.parentItem() != container) {
      child.setParentItem(container);
      child.setParent(container);
    }
    if (below) {
      const auto siblings = container->childItems();
      const auto at = siblings.indexOf(below);
      if (at + 1 >= siblings.size() || siblings[at + 1] != &child) {
        child.stackAfter(below);
      }
    }
    below = &child;
  }
  for (auto* child : container->childItems()) {
    auto* mirrored = qobject_cast<ViewItem*>(child);
    if (mirrored && !shown.contains(mirrored)) {
      orphans_.emplace_back(mirrored);
    }
  }
}

void ViewMirror::dropOrphans() {
  for (const auto& orphan : std::exchange(orphans_, {})) {
    if (!orphan) {
      continue;
    }
    const auto* view = orphan->view();
    const auto superview = view ? view->superview() : nullptr;
    const auto parent = superview ? items_.find(superview.get()) : items_.end();
    if (parent != items_.end() && parent->second->container() == orphan->parentItem()) {
      continue;  // It has come back in the meantime.
    }
    for (auto* above = orphan->ancestor<ViewItem>(); above; above = above->ancestor<ViewItem>()) {
      above->itemIsGoing(*orphan);
    }
    if (view) {
      items_.erase(view);
      orphan->detach();
    }
    orphan->setParentItem(nullptr);
    orphan->deleteLater();
  }
}
