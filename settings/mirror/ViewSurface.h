#pragma once

#include <QMetaType>
#include <QPointer>
#include <QQuickItem>
#include <memory>
#include <qqmlintegration.h>

#include "settings/mirror/ViewMirror.h"

class UIView;

using ViewHandle = std::shared_ptr<UIView>;
Q_DECLARE_METATYPE(ViewHandle)

/// The place of the window in which a view and everything below it is shown.
class ViewSurface : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  /// The view, or nothing.
  Q_PROPERTY(ViewHandle root READ root WRITE setRoot NOTIFY rootChanged)
  /// Whether the view is in sight. Only then it is laid out.
  Q_PROPERTY(bool live READ isLive WRITE setLive NOTIFY liveChanged)
  /// Whether the view takes the surface's size, or the surface the view's.
  Q_PROPERTY(bool fillsSurface MEMBER fillsSurface_)

 public:
  explicit ViewSurface(QQuickItem* parent = nullptr);
  ~ViewSurface() override;
  Q_DISABLE_COPY_MOVE(ViewSurface)

  const ViewHandle& root() const { return root_; }
  void setRoot(const ViewHandle& root);
  bool isLive() const { return live_; }
  void setLive(bool live);

  /// Before a commit: lays the view out and gives it an item.
  void layOut();

  /// Takes the keyboard focus to the view's list, where it last was in it.
  Q_INVOKABLE void takeFocus();

 signals:
  void rootChanged();
  void liveChanged();

 protected:
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
  void componentComplete() override;

 private:
  void fit();

  ViewHandle root_;
  bool live_ = false;
  bool fillsSurface_ = true;
  // Kept: an item that is being taken down no longer knows its engine.
  QPointer<ViewMirror> mirror_;
};
