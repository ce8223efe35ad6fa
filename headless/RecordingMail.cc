#include "headless/RecordingMail.h"

#include <utility>

RecordingMail::RecordingMail(bool canSend, std::shared_ptr<MailService> next)
    : canSend_(canSend), next_(std::move(next)) {}

bool RecordingMail::send(const MailMessage& message) {
  sent_.push_back(message);
  return !next_ || next_->send(message);
}

std::optional<std::string> RecordingMail::saveDraft(const MailMessage& message) {
  drafts_.push_back(message);
  return next_ ? next_->saveDraft(message) : std::string("draft.eml");
}
