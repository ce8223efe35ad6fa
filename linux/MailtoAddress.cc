#include "linux/MailtoAddress.h"

#include <algorithm>
#include <charconv>

#include "linux/MailMessageWriter.h"
#include "platform/foundation/asciiText.h"
#include "platform/foundation/percentEncoding.h"

namespace {

constexpr std::string_view kScheme = "mailto:";

// Nothing where a "%" is not followed by two hexadecimal digits.
std::optional<std::string> percentDecoded(std::string_view text) {
  constexpr int kHexadecimal = 16;
  std::string result;
  while (!text.empty()) {
    if (text.front() != '%') {
      result += text.front();
      text.remove_prefix(1);
      continue;
    }
    const auto digits = text.substr(1, 2);
    unsigned char byte = 0;
    const auto* const end = digits.data() + digits.size();
    const auto read = std::from_chars(digits.data(), end, byte, kHexadecimal);
    if (digits.size() != 2 || read.ec != std::errc{} || read.ptr != end) {
      return std::nullopt;
    }
    result += static_cast<char>(byte);
    text.remove_prefix(3);
  }
  return result;
}

std::string withoutControls(std::string text, bool keepsLines) {
  std::ranges::replace_if(
      text,
      [&](char letter) {
        const auto byte = static_cast<unsigned char>(letter);
        return (byte < ' ' && !(keepsLines && letter == '\n')) || byte == 0x7F;
      },
      ' ');
  return text;
}

// What comes before the separator, which is taken off with it.
std::string_view takeUntil(char separator, std::string_view& text) {
  const auto length = std::min(text.find(separator), text.size());
  const auto part = text.substr(0, length);
  text.remove_prefix(std::min(length + 1, text.size()));
  return part;
}

}  // namespace

std::optional<MailtoAddress> MailtoAddress::parse(std::string_view text) {
  if (lowered(text.substr(0, kScheme.size())) != kScheme) {
    return std::nullopt;
  }
  text.remove_prefix(kScheme.size());
  auto fields = takeUntil('#', text);
  auto recipients = takeUntil('?', fields);
  MailtoAddress address;
  while (!recipients.empty()) {
    auto recipient = percentDecoded(takeUntil(',', recipients));
    if (!recipient || !MailMessageWriter::isAddress(*recipient)) {
      return std::nullopt;
    }
    address.recipients.push_back(std::move(*recipient));
  }
  while (!fields.empty()) {
    auto value = takeUntil('&', fields);
    const auto name = lowered(takeUntil('=', value));
    const auto decoded = percentDecoded(value);
    if (!decoded) {
      return std::nullopt;
    }
    if (name == "subject") {
      address.subject = withoutControls(*decoded, false);
    } else if (name == "body") {
      address.body = withoutControls(withLineFeeds(*decoded), true);
    }
  }
  return address;
}

std::string MailtoAddress::text() const {
  std::string result(kScheme);
  for (const auto& recipient : recipients) {
    const auto at = recipient.rfind('@');
    result += (&recipient == recipients.data() ? "" : ",") +
              percentEncoded(recipient.substr(0, at), kUnreservedMarks) + recipient.substr(at);
  }
  std::string encodedBody;
  for (const char letter : body) {
    if (letter == '\n') {
      encodedBody += "%0D%0A";
    } else if (letter != '\r') {
      encodedBody += percentEncoded({&letter, 1}, kUnreservedMarks);
    }
  }
  result += subject.empty() ? "" : "?subject=" + percentEncoded(subject, kUnreservedMarks);
  result += body.empty() ? "" : (subject.empty() ? "?body=" : "&body=") + encodedBody;
  return result;
}
