#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <qqmlintegration.h>

#include "platform/messageui/MFMailComposeViewController.h"

/// A sheet in which a mail is completed and sent, as QML sees it. Main thread.
class MailModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the application")
  Q_PROPERTY(QString recipients READ recipients CONSTANT)
  /// As it was when the sheet came up.
  Q_PROPERTY(QString subject READ subject CONSTANT)
  Q_PROPERTY(QString body READ body CONSTANT)
  /// What is attached: file names and how large each file is, in the same order.
  Q_PROPERTY(QStringList attachments READ attachments CONSTANT)
  Q_PROPERTY(QStringList sizes READ sizes CONSTANT)
  /// Place of the attachment that is being read; -1 for none.
  Q_PROPERTY(int reading READ reading WRITE setReading NOTIFY readingChanged)
  /// The attachment that is being read, in lines.
  Q_PROPERTY(QString attachmentText READ attachmentText NOTIFY readingChanged)
  /// The mail is on its way; nothing can be changed or cancelled until it has gone or come back.
  Q_PROPERTY(bool sending READ isSending NOTIFY sendingChanged)
  /// What went wrong; empty for nothing.
  Q_PROPERTY(QString complaint READ complaint NOTIFY complaintChanged)

 public:
  explicit MailModel(std::shared_ptr<MFMailComposeViewController> sheet);

  const MFMailComposeViewController& sheet() const { return *sheet_; }
  QString recipients() const;
  QString subject() const;
  QString body() const;
  QStringList attachments() const;
  QStringList sizes() const;
  int reading() const { return reading_; }
  void setReading(int index);
  QString attachmentText() const;
  bool isSending() const { return sending_; }
  const QString& complaint() const { return complaint_; }

  Q_INVOKABLE void editSubject(const QString& subject);
  Q_INVOKABLE void editBody(const QString& body);

  /// Hands the mail over without holding up the window. The sheet ends once it has been taken; else
  /// it stays, with a complaint.
  Q_INVOKABLE void send();
  /// Keeps the mail as a file, tells where, and ends the sheet; the sheet stays, with a complaint,
  /// where the file cannot be written.
  Q_INVOKABLE void saveDraft();
  Q_INVOKABLE void cancel();

 signals:
  void readingChanged();
  void sendingChanged();
  void complaintChanged();

 private:
  void sendingEnded(bool sent);
  void complain(const QString& complaint, MFMailComposeErrorCode error);
  /// Nothing of this object may be used afterwards.
  void finish(MFMailComposeResult result, std::optional<MFMailComposeErrorCode> error = {});

  std::shared_ptr<MFMailComposeViewController> sheet_;
  QString complaint_;
  std::optional<MFMailComposeErrorCode> error_;
  int reading_ = -1;
  bool sending_ = false;
};
