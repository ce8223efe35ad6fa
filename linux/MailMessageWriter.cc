#include "linux/MailMessageWriter.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>

#include "linux/propertylist/Base64.h"
#include "linux/propertylist/Unicode.h"
#include "platform/foundation/asciiText.h"

namespace {

constexpr std::size_t kLongestLine = 76;
// A word of a field that could not be folded within a line.
constexpr std::size_t kLongestWord = 60;
// "=_" occurs in neither of the two encodings that parts have.
constexpr std::string_view kBoundary = "=_QuietDial_part";
constexpr std::string_view kEncodedWordStart = "=?UTF-8?B?";
constexpr std::string_view kEncodedWordEnd = "?=";
constexpr std::string_view kNewLine = "\r\n";

bool isControl(char32_t character) {
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

// Well-formed UTF-8; for a field, without control characters.
std::string cleaned(std::string_view text, bool isField) {
  std::string clean;
  while (!text.empty()) {
    const auto character = decodeUTF8(text);
    if (!character || isSurrogate(character->codePoint)) {
      appendUTF8(clean, 0xFFFD);
    } else {
      appendUTF8(clean, isField && isControl(character->codePoint) ? U' ' : character->codePoint);
    }
    text.remove_prefix(character ? character->length : 1);
  }
  return clean;
}

std::string base64Of(std::string_view bytes) {
  PropertyListData data(bytes.size());
  std::ranges::transform(bytes, data.begin(),
                         [](char byte) { return static_cast<std::byte>(byte); });
  std::string letters;
  appendBase64(letters, data);
  return letters;
}

std::string hexOf(char byte) {
  std::array<char, 3> digits{};
  std::snprintf(digits.data(), digits.size(), "%02X", static_cast<unsigned char>(byte));
  return digits.data();
}

// Whether the text stands in a field as it is and comes back as it was.
bool isPlainFieldText(std::string_view text) {
  const bool isAscii =
      std::ranges::all_of(text, [](char letter) { return letter >= ' ' && letter <= '~'; });
  if (!isAscii || text.find("=?") != std::string_view::npos ||
      text.find("  ") != std::string_view::npos || text.starts_with(' ') || text.ends_with(' ')) {
    return false;
  }
  while (!text.empty()) {
    const auto length = std::min(text.find(' '), text.size());
    if (length > kLongestWord) {
      return false;
    }
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return true;
}

std::string dateText(std::chrono::sys_seconds date) {
  constexpr std::array kDays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  constexpr std::array kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  // Universal time: where the sender is, is nobody's concern.
  const std::time_t seconds = date.time_since_epoch().count();
  std::tm parts{};
  gmtime_r(&seconds, &parts);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%s, %d %s %04d %02d:%02d:%02d +0000",
                kDays.at(static_cast<std::size_t>(parts.tm_wday)), parts.tm_mday,
                kMonths.at(static_cast<std::size_t>(parts.tm_mon)), parts.tm_year + 1900,
                parts.tm_hour, parts.tm_min, parts.tm_sec);
  return text.data();
}

// type/subtype, both tokens; anything else is bytes of no known kind.
std::string mimeTypeOf(const MailAttachment& attachment) {
  const std::string_view type = attachment.mimeType;
  const auto isTokenSign = [](char letter) {
    return isAlphanumeric(letter) || letter == '-' || letter == '.' || letter == '+' ||
           letter == '_';
  };
  const auto slash = type.find('/');
  const bool wellFormed = slash != std::string_view::npos && slash > 0 && slash + 1 < type.size() &&
                          type.size() <= kLongestWord &&
                          std::ranges::all_of(type.substr(0, slash), isTokenSign) &&
                          std::ranges::all_of(type.substr(slash + 1), isTokenSign);
  return wellFormed ? attachment.mimeType : "application/octet-stream";
}

// The parameter with a file's name, on a line of its own: quoted where it can be, else in the
// extended form, in as many pieces as its length takes.
std::string nameParameter(std::string_view parameter, std::string_view name) {
  const std::string clean = cleaned(name, true);
  const bool plain = clean.size() <= kLongestWord && std::ranges::all_of(clean, [](char letter) {
                       return letter >= ' ' && letter <= '~' && letter != '"' && letter != '\\';
                     });
  const std::string key(parameter);
  if (plain) {
    return ";\r\n " + key + "=\"" + clean + "\"";
  }
  std::string result;
  std::string piece = "UTF-8''";
  int number = 0;
  const auto endPiece = [&] {
    result += ";\r\n " + key + "*" + std::to_string(number++) + "*=" + piece;
    piece.clear();
  };
  for (const char letter : clean) {
    // Each piece holds whole characters.
    if (piece.size() > 50 && (static_cast<unsigned char>(letter) & 0xC0U) != 0x80U) {
      endPiece();
    }
    piece += isAlphanumeric(letter) || letter == '.' || letter == '-' ? std::string(1, letter)
                                                                      : "%" + hexOf(letter);
  }
  endPiece();
  return result;
}

}  // namespace

bool MailMessageWriter::isAddress(std::string_view text) {
  constexpr std::size_t kLongestAddress = 254;
  constexpr std::string_view kSigns = "!#$%&'*+/=?^_`{|}~.-";
  const auto at = text.find('@');
  if (at == std::string_view::npos || text.size() > kLongestAddress) {
    return false;
  }
  const auto isDotted = [](std::string_view part) {
    return !part.empty() && !part.starts_with('.') && !part.ends_with('.') &&
           part.find("..") == std::string_view::npos;
  };
  const auto local = text.substr(0, at);
  const auto domain = text.substr(at + 1);
  return isDotted(local) && isDotted(domain) && !local.starts_with('-') &&
         std::ranges::all_of(local,
                             [&](char letter) {
                               return isAlphanumeric(letter) ||
                                      kSigns.find(letter) != std::string_view::npos;
                             }) &&
         std::ranges::all_of(domain, [](char letter) {
           return isAlphanumeric(letter) || letter == '-' || letter == '.';
         });
}

std::optional<std::string> MailMessageWriter::write(const MailMessage& message,
                                                    const MailOrigin& origin) {
  const auto& recipients = message.recipients;
  if (recipients.empty() || !std::ranges::all_of(recipients, isAddress) ||
      (!origin.from.empty() && !isAddress(origin.from))) {
    return std::nullopt;
  }
  MailMessageWriter writer;
  std::string& output = writer.output_;
  if (!origin.from.empty()) {
    output += "From: " + origin.from + "\r\n";
  }
  output += "To: ";
  for (std::size_t index = 0; index < recipients.size(); ++index) {
    output += (index == 0 ? "" : ",\r\n ") + recipients[index];
  }
  output += kNewLine;
  writer.appendField("Subject", message.subject);
  output += "Date: " + dateText(origin.date) + "\r\n";
  if (origin.isDraft) {
    output += "X-Unsent: 1\r\n";
  }
  output += "MIME-Version: 1.0\r\n";
  if (message.attachments.empty()) {
    writer.appendBody(message);
    return std::move(output);
  }
  const std::string boundary(kBoundary);
  output += "Content-Type: multipart/mixed; boundary=\"" + boundary + "\"\r\n";
  output += "\r\n--" + boundary + "\r\n";
  writer.appendBody(message);
  for (const auto& attachment : message.attachments) {
    output += "\r\n--" + boundary + "\r\n";
    writer.appendAttachment(attachment);
  }
  output += "\r\n--" + boundary + "--\r\n";
  return std::move(output);
}

void MailMessageWriter::appendField(std::string_view name, std::string_view text) {
  const std::string clean = cleaned(text, true);
  if (isPlainFieldText(clean)) {
    appendFoldedText(name, clean);
  } else {
    appendEncodedText(name, clean);
  }
}

void MailMessageWriter::appendFoldedText(std::string_view name, std::string_view text) {
  output_ += name;
  output_ += ':';
  std::size_t column = name.size() + 1;
  while (!text.empty()) {
    const auto length = std::min(text.find(' '), text.size());
    if (column + 1 + length > kLongestLine) {
      output_ += kNewLine;
      column = 0;
    }
    output_ += ' ';
    output_ += text.substr(0, length);
    column += 1 + length;
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  output_ += kNewLine;
}

void MailMessageWriter::appendEncodedText(std::string_view name, std::string_view text) {
  output_ += name;
  output_ += ':';
  std::size_t column = name.size() + 1;
  while (!text.empty()) {
    const std::size_t letters =
        kLongestLine - column - 1 - kEncodedWordStart.size() - kEncodedWordEnd.size();
    const std::size_t room = letters / 4 * 3;
    // Whole characters: each encoded word is a text of its own.
    std::size_t length = 0;
    while (length < text.size()) {
      const std::size_t next = decodeUTF8(text.substr(length))->length;
      if (length + next > room) {
        break;
      }
      length += next;
    }
    output_ += ' ';
    output_ += kEncodedWordStart;
    output_ += base64Of(text.substr(0, length));
    output_ += kEncodedWordEnd;
    output_ += kNewLine;
    column = 0;
    text.remove_prefix(length);
  }
}

void MailMessageWriter::appendBody(const MailMessage& message) {
  output_ += message.isHTML ? "Content-Type: text/html; charset=utf-8\r\n"
                            : "Content-Type: text/plain; charset=utf-8\r\n";
  output_ += "Content-Transfer-Encoding: quoted-printable\r\n\r\n";
  appendQuotedPrintable(withLineFeeds(cleaned(message.body, false)));
}

void MailMessageWriter::appendAttachment(const MailAttachment& attachment) {
  output_ += "Content-Type: " + mimeTypeOf(attachment) +
             nameParameter("name", attachment.fileName) + "\r\n";
  output_ += "Content-Transfer-Encoding: base64\r\n";
  output_ += "Content-Disposition: attachment" + nameParameter("filename", attachment.fileName) +
             "\r\n\r\n";
  std::string letters;
  appendBase64(letters, attachment.data);
  for (std::size_t start = 0; start < letters.size(); start += kLongestLine) {
    output_ += std::string_view(letters).substr(start, kLongestLine);
    output_ += kNewLine;
  }
}

void MailMessageWriter::appendQuotedPrintable(std::string_view text) {
  std::size_t column = 0;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char letter = text[index];
    if (letter == '\n') {
      output_ += kNewLine;
      column = 0;
      continue;
    }
    const bool endsLine = index + 1 == text.size() || text[index + 1] == '\n';
    const bool isBlank = letter == ' ' || letter == '\t';
    // Some who carry mail change lines that begin with "From " or are a dot.
    const bool isTrap =
        column == 0 && ((letter == '.' && endsLine) || text.substr(index).starts_with("From "));
    const bool plain =
        isBlank ? !endsLine : letter > ' ' && letter <= '~' && letter != '=' && !isTrap;
    const std::string piece = plain ? std::string(1, letter) : "=" + hexOf(letter);
    // The sign that breaks a line needs a place of its own.
    if (column + piece.size() > kLongestLine - (endsLine ? 0 : 1)) {
      output_ += "=\r\n";
      column = 0;
    }
    output_ += piece;
    column += piece.size();
  }
}
