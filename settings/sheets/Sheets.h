#pragma once

#include <QObject>
#include <deque>
#include <memory>
#include <qqmlintegration.h>

#include "platform/services.h"
#include "settings/sheets/AlertModel.h"
#include "settings/sheets/ComposeModel.h"
#include "settings/sheets/MailModel.h"

/// What stands above the pages: alerts one after the other, and one sheet of each kind. Main
/// thread.
class Sheets : public QObject, public SheetPresenter {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the application")
  /// The alert to be answered next, or null.
  Q_PROPERTY(AlertModel* alert READ alert NOTIFY changed)
  /// Null while none is shown.
  Q_PROPERTY(ComposeModel* compose READ compose NOTIFY changed)
  /// Null while none is shown.
  Q_PROPERTY(MailModel* mail READ mail NOTIFY changed)

 public:
  using QObject::QObject;

  AlertModel* alert() const { return alerts_.empty() ? nullptr : alerts_.front().get(); }
  ComposeModel* compose() const { return compose_.get(); }
  MailModel* mail() const { return mail_.get(); }

  bool isShowing() const { return alert() || mail() || compose(); }
  /// What Escape does: takes away what stands on top.
  void cancel();

  /// The user has closed the alert.
  Q_INVOKABLE void closeAlert();

  /// A sheet of a kind that this window cannot show is dismissed at once.
  void present(UIViewController& presenter,
               const std::shared_ptr<UIViewController>& sheet) override;
  void dismiss(UIViewController& sheet) override;
  void show(const std::shared_ptr<UIAlertView>& alert) override;

 signals:
  void changed();

 private:
  std::deque<std::unique_ptr<AlertModel>> alerts_;
  std::unique_ptr<ComposeModel> compose_;
  std::unique_ptr<MailModel> mail_;
};
