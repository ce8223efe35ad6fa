#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <qqmlintegration.h>

class SLComposeViewController;

/// A sheet in which a short text is completed and posted, as QML sees it.
class ComposeModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the application")
  Q_PROPERTY(QString service READ service CONSTANT)
  Q_PROPERTY(QString text READ text CONSTANT)

 public:
  explicit ComposeModel(std::shared_ptr<SLComposeViewController> sheet);

  const SLComposeViewController& sheet() const { return *sheet_; }
  QString service() const;
  QString text() const;

  /// The user has changed the text.
  Q_INVOKABLE void edit(const QString& text);
  /// Both end the sheet; nothing of it may be used afterwards. Posting opens the service's form for
  /// the text in the browser.
  Q_INVOKABLE void post();
  Q_INVOKABLE void cancel();

 private:
  std::shared_ptr<SLComposeViewController> sheet_;
};
