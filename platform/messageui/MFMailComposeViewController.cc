#include "platform/messageui/MFMailComposeViewController.h"

#include <utility>

#include "platform/services.h"

constexpr ClassOf<MFMailComposeViewController> MFMailComposeViewController::classObject{
    "MFMailComposeViewController"};

MFMailComposeViewControllerDelegate::~MFMailComposeViewControllerDelegate() = default;

bool MFMailComposeViewController::canSendMail() {
  return services().mail->canSend();
}

void MFMailComposeViewController::setToRecipients(std::vector<std::string> recipients) {
  message_.recipients = std::move(recipients);
}

void MFMailComposeViewController::setSubject(std::string subject) {
  message_.subject = std::move(subject);
}

void MFMailComposeViewController::setMessageBodyIsHTML(std::string body, bool isHTML) {
  message_.body = std::move(body);
  message_.isHTML = isHTML;
}

void MFMailComposeViewController::addAttachmentDataMimeTypeFileName(PropertyListData data,
                                                                    std::string mimeType,
                                                                    std::string fileName) {
  message_.attachments.push_back({std::move(data), std::move(mimeType), std::move(fileName)});
}

void MFMailComposeViewController::finish(MFMailComposeResult result,
                                         std::optional<MFMailComposeErrorCode> error) {
  const auto keptAlive = shared_from_this();
  if (const auto delegate = std::exchange(delegate_, {}).lock()) {
    delegate->mailComposeControllerDidFinishWithResultError(*this, result, error);
  }
  // A delegate that is gone, or no longer on the screen, would leave the sheet there for good.
  if (presentingViewController()) {
    dismissViewControllerAnimatedCompletion(true, {});
  }
}
