#pragma once

#include <string>
#include <vector>

#include "platform/foundation/PropertyList.h"

/// A file that goes with a mail.
struct MailAttachment {
  PropertyListData data;
  std::string mimeType;
  std::string fileName;
  bool operator==(const MailAttachment&) const = default;
};

/// A mail as it was composed. Texts are UTF-8, lines end in line feeds.
struct MailMessage {
  std::vector<std::string> recipients;  // bare addresses
  std::string subject;
  std::string body;
  bool isHTML = false;
  std::vector<MailAttachment> attachments;
  bool operator==(const MailMessage&) const = default;
};
