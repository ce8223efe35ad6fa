#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QQmlComponent>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/uikit/UIView.h"

class QQmlEngine;
class QQuickItem;
class ViewItem;
class ViewSurface;

/// Keeps one item for each view that is shown. Changes of the views are gathered and brought over
/// once a turn of the event loop; before that the shown pages lay themselves out. One at a time;
/// main thread.
class ViewMirror : public QObject, public UIViewObserver {
  Q_OBJECT

 public:
  explicit ViewMirror(QQmlEngine& engine);
  ~ViewMirror() override;
  Q_DISABLE_COPY_MOVE(ViewMirror)

  /// A surface shows a view and everything below it from now on.
  void add(ViewSurface& surface);
  void remove(ViewSurface& surface);

  /// The item of a view, made where there is none yet.
  ViewItem& itemFor(UIView& view);
  /// The item of that view is gone.
  void forget(const UIView& view);

  /// The user has tapped at that place in the window: every view that recognises taps there is
  /// told.
  void recognizeTap(QPointF place);

  /// Brings over whatever has changed. Called by itself; earlier by whoever cannot wait.
  void commit();
  /// Reads every view again: what they are shown with has changed.
  void bringOverAll();
  /// Asks for a commit in the next turn of the event loop.
  void scheduleCommit();
  bool isPending() const { return scheduled_; }

  void viewChanged(UIView& view) override;
  void viewDestroyed(const UIView& view) override;

 signals:
  void committed();

 protected:
  bool event(QEvent* event) override;

 private:
  QQmlComponent& componentFor(const UIView& view);
  void layOut();
  void bringOver(ViewItem& item);
  void bringOverSubviews(ViewItem& item);
  void bringOverTint(ViewItem& item);
  void dropOrphans();

  QQmlEngine& engine_;
  std::vector<ViewSurface*> surfaces_;
  std::unordered_map<const UIView*, ViewItem*> items_;
  std::unordered_set<const UIView*> changed_;
  std::unordered_map<const char*, std::unique_ptr<QQmlComponent>> components_;
  std::vector<QPointer<ViewItem>> orphans_;
  bool scheduled_ = false;
  bool committing_ = false;
};
