#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"
#include "platform/messageui/MailMessage.h"
#include "platform/uikit/UIViewController.h"

class MFMailComposeViewController;

/// The numbers are the platform's.
enum class MFMailComposeResult { kCancelled = 0, kSaved = 1, kSent = 2, kFailed = 3 };
enum class MFMailComposeErrorCode { kSaveFailed = 0, kSendFailed = 1 };

/// Told how a mail composer ended; it has to dismiss the composer. Implemented by an NSObject.
class PLATFORM_API MFMailComposeViewControllerDelegate {
 public:
  virtual ~MFMailComposeViewControllerDelegate();
  virtual void mailComposeControllerDidFinishWithResultError(
      MFMailComposeViewController& composer, MFMailComposeResult result,
      std::optional<MFMailComposeErrorCode> error) = 0;
};

/// A sheet in which the user completes a mail and sends it, keeps it as a draft or drops it. Main
/// thread.
class PLATFORM_API MFMailComposeViewController
    : public Subclass<MFMailComposeViewController, UIViewController> {
 public:
  static const ClassOf<MFMailComposeViewController> classObject;

  /// Whether a mail account is set up here.
  static bool canSendMail();

  /// Held weakly.
  void setMailComposeDelegate(
      const std::shared_ptr<MFMailComposeViewControllerDelegate>& delegate) {
    delegate_ = delegate;
  }
  void setToRecipients(std::vector<std::string> recipients);
  /// Also for the host, as the user types; so is the body.
  void setSubject(std::string subject);
  void setMessageBodyIsHTML(std::string body, bool isHTML);
  void addAttachmentDataMimeTypeFileName(PropertyListData data, std::string mimeType,
                                         std::string fileName);

  const MailMessage& message() const { return message_; }

  /// For the host: the user is done, or sending or saving has failed. The delegate is told once;
  /// a composer that is still shown afterwards dismisses itself.
  void finish(MFMailComposeResult result, std::optional<MFMailComposeErrorCode> error = {});

 private:
  MailMessage message_;
  std::weak_ptr<MFMailComposeViewControllerDelegate> delegate_;
};
