#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The address of a mail that is yet to be written (RFC 6068), with no more in it than whom it goes
/// to and what it says.
struct MailtoAddress {
  std::vector<std::string> recipients;  ///< Bare addresses.
  std::string subject;
  std::string body;

  /// Reads the recipients, subject and body of a "mailto:" address and passes over all else that
  /// programs may make of one: more recipients, other fields, files to attach. Control characters
  /// become blanks, but for the body's line feeds. Nothing where it is no such address, a recipient
  /// is none, or the encoding is broken.
  static std::optional<MailtoAddress> parse(std::string_view text);

  /// Every character that could mean something is encoded.
  std::string text() const;
};
