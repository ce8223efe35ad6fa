#pragma once

#include <optional>
#include <string>

#include "platform/services.h"

/// No mail account, on whatever machine, and no place for drafts.
class NoMail final : public MailService {
 public:
  bool canSend() override { return false; }
  bool send(const MailMessage& /*message*/) override { return false; }
  std::optional<std::string> saveDraft(const MailMessage& /*message*/) override {
    return std::nullopt;
  }
};
