#pragma once

#include <QColor>
#include <memory>

#include "platform/coregraphics/CGGeometry.h"
#include "platform/uikit/UIColor.h"
#include "settings/accessibility/AccessibleItem.h"

class UIView;
class ViewMirror;

/// The colour as the window shows it now.
QColor toQColor(const UIColor& color);

/// Shows one view of the frameworks; its look is given by the QML type of the view's kind. The view
/// may go at any moment: the item is then empty, does nothing, and is soon deleted. Main thread.
class ViewItem : public AccessibleItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(QColor color READ color NOTIFY lookChanged)
  Q_PROPERTY(qreal radius READ radius NOTIFY lookChanged)
  Q_PROPERTY(QColor tint READ tint NOTIFY lookChanged)
  /// The item that holds the subviews; the item itself unless set.
  Q_PROPERTY(QQuickItem* container MEMBER container_)

 public:
  explicit ViewItem(QQuickItem* parent = nullptr);
  ~ViewItem() override;
  Q_DISABLE_COPY_MOVE(ViewItem)

  void attach(UIView& view, ViewMirror& mirror);
  void detach();

  UIView* view() const { return view_; }
  ViewMirror* mirror() const { return mirror_; }
  QQuickItem* container() { return container_ ? container_ : this; }
  /// The nearest item of a superview that is a T, or null.
  template <class T>
  T* ancestor() const {
    for (auto* item = parentItem(); item; item = item->parentItem()) {
      if (auto* found = qobject_cast<T*>(item)) {
        return found;
      }
    }
    return nullptr;
  }

  QColor color() const { return color_; }
  qreal radius() const { return radius_; }
  QColor tint() const { return tint_; }
  /// Whether taps on it, or anywhere below it, concern the view itself.
  bool recognizesTaps() const;
  /// Whether taps on it are its own, so that no superview recognises them.
  virtual bool keepsTaps() const { return false; }
  /// Whether the keyboard goes to it when it comes to the page.
  virtual bool takesPageFocus() const { return false; }
  /// That item, somewhere below it, is about to be deleted; another may take its place.
  virtual void itemIsGoing(const ViewItem& /*item*/) {}
  /// The user has tapped at that place in the item.
  void recognizeTap(QPointF place);

  /// Takes over what the view shows. True when its tint is another than before, which then holds
  /// for everything below it too.
  bool takeOver();

  /// Whether the subviews stand in a list, so that their order is their order from the top and not
  /// the one in which they were added.
  bool ordersByPosition() const;

 signals:
  void lookChanged();

 protected:
  /// The view as the kind that this item's class is made for; null when it is gone.
  template <class View>
  View* viewAs() const {
    return static_cast<View*>(view_);
  }
  /// For subclasses: read the view's own values.
  virtual void takeOverLook() {}
  /// For subclasses whose items are there even while the view is hidden.
  virtual void takeOverVisibility(bool hidden) { setVisible(!hidden); }

 private:
  qreal mirroredX(const CGRect& frame) const;

  UIView* view_ = nullptr;
  ViewMirror* mirror_ = nullptr;
  QQuickItem* container_ = nullptr;
  QColor color_ = Qt::transparent;
  QColor tint_;
  qreal radius_ = 0;
};
