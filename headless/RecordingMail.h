#pragma once

#include <memory>
#include <vector>

#include "platform/messageui/MailMessage.h"
#include "platform/services.h"

/// Keeps the mails that are sent and saved, and hands them on where there is somebody to hand them
/// to. Whether there is a mail account is given, so that answers never depend on the machine.
class RecordingMail : public MailService {
 public:
  /// `next` may be null: everything then succeeds.
  RecordingMail(bool canSend, std::shared_ptr<MailService> next);

  bool canSend() override { return canSend_; }
  void setCanSend(bool canSend) { canSend_ = canSend; }
  bool send(const MailMessage& message) override;
  std::optional<std::string> saveDraft(const MailMessage& message) override;

  const std::vector<MailMessage>& sent() const { return sent_; }
  const std::vector<MailMessage>& drafts() const { return drafts_; }

 private:
  bool canSend_;
  std::shared_ptr<MailService> next_;
  std::vector<MailMessage> sent_;
  std::vector<MailMessage> drafts_;
};
