#include "settings/sheets/MailModel.h"

#include <QLocale>
#include <QPointer>
#include <thread>
#include <utility>

#include "platform/foundation/MainQueue.h"
#include "platform/services.h"
#include "platform/uikit/UIAlertView.h"
#include "settings/sheets/AttachmentText.h"

MailModel::MailModel(std::shared_ptr<MFMailComposeViewController> sheet)
    : sheet_(std::move(sheet)) {}

QString MailModel::recipients() const {
  QStringList list;
  for (const auto& recipient : sheet_->message().recipients) {
    list.append(QString::fromStdString(recipient));
  }
  return list.join(QStringLiteral(", "));
}

QString MailModel::subject() const {
  return QString::fromStdString(sheet_->message().subject);
}

QString MailModel::body() const {
  return QString::fromStdString(sheet_->message().body);
}

QStringList MailModel::attachments() const {
  QStringList names;
  for (const auto& attachment : sheet_->message().attachments) {
    names.append(QString::fromStdString(attachment.fileName));
  }
  return names;
}

QStringList MailModel::sizes() const {
  QStringList sizes;
  for (const auto& attachment : sheet_->message().attachments) {
    sizes.append(QLocale().formattedDataSize(static_cast<qint64>(attachment.data.size()), 1,
                                             QLocale::DataSizeSIFormat));
  }
  return sizes;
}

void MailModel::setReading(int index) {
  if (index != reading_) {
    reading_ = index;
    emit readingChanged();
  }
}

QString MailModel::attachmentText() const {
  const auto& attachments = sheet_->message().attachments;
  const bool there = reading_ >= 0 && static_cast<std::size_t>(reading_) < attachments.size();
  return there ? readableText(attachments[static_cast<std::size_t>(reading_)].data) : QString();
}

void MailModel::editSubject(const QString& subject) {
  sheet_->setSubject(subject.toStdString());
}

void MailModel::editBody(const QString& body) {
  sheet_->setMessageBodyIsHTML(body.toStdString(), sheet_->message().isHTML);
}

void MailModel::send() {
  if (sending_) {
    return;
  }
  sending_ = true;
  emit sendingChanged();
  const QPointer<MailModel> self(this);
  std::thread([self, service = services().mail, message = sheet_->message()] {
    const bool sent = service->send(message);
    MainQueue::shared().async([self, sent] {
      if (self) {
        self->sendingEnded(sent);
      }
    });
  }).detach();
}

void MailModel::sendingEnded(bool sent) {
  sending_ = false;
  emit sendingChanged();
  if (sent) {
    finish(MFMailComposeResult::kSent);
  } else {
    complain(tr("The mail could not be sent. You can try again or save it as a draft."),
             MFMailComposeErrorCode::kSendFailed);
  }
}

void MailModel::saveDraft() {
  const auto file = services().mail->saveDraft(sheet_->message());
  if (!file) {
    complain(tr("The draft could not be saved."), MFMailComposeErrorCode::kSaveFailed);
    return;
  }
  const auto alert = alloc<UIAlertView>();
  alert->initWithTitleMessageCancelButtonTitle(tr("Draft saved").toStdString(),
                                               tr("Mail programs open it from this file:\n%1")
                                                   .arg(QString::fromStdString(*file))
                                                   .toStdString(),
                                               tr("OK").toStdString());
  alert->show();
  finish(MFMailComposeResult::kSaved);
}

void MailModel::cancel() {
  if (!sending_) {
    finish(error_ ? MFMailComposeResult::kFailed : MFMailComposeResult::kCancelled, error_);
  }
}

void MailModel::complain(const QString& complaint, MFMailComposeErrorCode error) {
  error_ = error;
  complaint_ = complaint;
  emit complaintChanged();
}

void MailModel::finish(MFMailComposeResult result, std::optional<MFMailComposeErrorCode> error) {
  const auto sheet = sheet_;
  sheet->finish(result, error);
}
