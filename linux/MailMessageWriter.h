#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/messageui/MailMessage.h"

/// What a mail gets besides what was composed.
struct MailOrigin {
  /// Bare address of the sender; empty leaves the field to whoever sends the mail.
  std::string from;
  std::chrono::sys_seconds date;
  /// Mail programs open the message for editing.
  bool isDraft = false;
};

/// Writes a mail as an Internet message (RFC 5322) with MIME parts (RFC 2045 to 2047, 2231): ASCII
/// only, lines of at most 78 characters that end in CR LF. The texts come back to the letter.
class MailMessageWriter {
 public:
  /// Nothing when there is no recipient or an address is none. Control characters in a field are
  /// written as blanks, so that no text can begin a field of its own; what is not UTF-8 as U+FFFD.
  static std::optional<std::string> write(const MailMessage& message, const MailOrigin& origin);

  /// Whether the text is a bare address: local part, "@", domain, of letters, digits and the signs
  /// that need no quoting.
  static bool isAddress(std::string_view text);

 private:
  void appendField(std::string_view name, std::string_view text);
  void appendEncodedText(std::string_view name, std::string_view text);
  void appendFoldedText(std::string_view name, std::string_view text);
  void appendBody(const MailMessage& message);
  void appendAttachment(const MailAttachment& attachment);
  void appendQuotedPrintable(std::string_view text);

  std::string output_;
};
