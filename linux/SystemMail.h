#pragma once

#include <string>

#include "platform/services.h"

/// Mail by what this machine has for it: a sendmail command ($PATH, else its usual places), else
/// the desktop's mail program, by xdg-email. The mail program shows the mail once more before it
/// sends.
///
/// Drafts, and the attachments that the mail program reads, are the user's alone. They lie in
/// folders of their own, which are the user's as well and no links; otherwise nothing is written.
/// The attachments' folder is in $XDG_CACHE_HOME, else in .cache of the user's own folder.
///
/// The sender is $EMAIL where that is an address; else the sendmail command fills in whom it sends
/// for.
class SystemMail final : public MailService {
 public:
  /// Drafts are kept in that folder, which is made when it is needed.
  explicit SystemMail(std::string draftsFolder);

  /// Whether there is a sendmail command or the desktop names a mail program. Takes as long as the
  /// desktop does to say so, a few seconds at most.
  bool canSend() override;
  bool send(const MailMessage& message) override;
  /// A message file (.eml), named after the time.
  std::optional<std::string> saveDraft(const MailMessage& message) override;

 private:
  std::string draftsFolder_;
};
