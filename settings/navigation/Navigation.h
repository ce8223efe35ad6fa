#pragma once

#include <QAbstractListModel>
#include <memory>
#include <qqmlintegration.h>
#include <vector>

#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UIWindow.h"
#include "settings/navigation/Page.h"

/// The pages of the window: a navigation controller inside another one, as the Settings application
/// has it, and for QML the list of its pages from the bottom. A page that was left stays the last
/// of the list until it has slid out of sight. Main thread.
class Navigation : public QAbstractListModel, public UINavigationControllerObserver {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the application")
  /// Place of the page on top; -1 while there is none.
  Q_PROPERTY(int top READ top NOTIFY topChanged)
  Q_PROPERTY(QString title READ title NOTIFY titleChanged)

 public:
  Navigation();
  ~Navigation() override;
  Q_DISABLE_COPY_MOVE(Navigation)

  int top() const { return top_; }
  QString title() const;
  UINavigationController& stack() { return *inner_; }
  std::shared_ptr<UIViewController> topPage() const { return inner_->topViewController(); }

  /// Leaves the top page; nothing on the first one.
  Q_INVOKABLE void back();
  /// The page that was left is out of sight.
  Q_INVOKABLE void slideEnded();
  /// Commits what is being typed.
  Q_INVOKABLE void endEditing();

  /// Whether pages slide; they do unless told otherwise.
  void setAnimated(bool animated) { animated_ = animated; }

  /// Reads what the bar shows for each page again.
  void refresh();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QHash<int, QByteArray> roleNames() const override;

  void didPush(UIViewController& controller, bool animated) override;
  void didPop(UIViewController& controller, bool animated) override;

 signals:
  /// `animated` says whether the page slides.
  void topChanged(bool animated);
  void titleChanged();

 private:
  void dropLeftPages();

  std::shared_ptr<UIWindow> window_;
  std::shared_ptr<UINavigationController> outer_;
  std::shared_ptr<UINavigationController> inner_;
  std::vector<std::unique_ptr<Page>> pages_;
  int top_ = -1;
  bool animated_ = true;
};
