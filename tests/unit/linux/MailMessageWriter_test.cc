#include "linux/MailMessageWriter.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;
using testing::Not;

MailMessage plain(std::string subject = "Subject", std::string body = "Body") {
  return {{"a@b.example"}, std::move(subject), std::move(body), false, {}};
}

std::string written(const MailMessage& message, const MailOrigin& origin = {}) {
  return MailMessageWriter::write(message, origin).value_or("nothing");
}

// The lines of a message without their ends; a line that ends in anything but CR LF fails.
std::vector<std::string> linesOf(const std::string& message) {
  std::vector<std::string> lines;
  std::istringstream stream(message);
  for (std::string line; std::getline(stream, line);) {
    if (line.ends_with('\r')) {
      line.pop_back();
    } else {
      EXPECT_TRUE(stream.eof()) << "a line without its end: " << line;
    }
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

TEST(MailMessageWriter, AMessageWithoutAttachmentsIsOnePart) {
  const MailOrigin origin{"me@b.example", std::chrono::sys_seconds(std::chrono::seconds(0)), false};
  EXPECT_EQ(written(plain("Sub ject", "a\nb"), origin),
            "From: me@b.example\r\n"
            "To: a@b.example\r\n"
            "Subject: Sub ject\r\n"
            "Date: Thu, 1 Jan 1970 00:00:00 +0000\r\n"
            "MIME-Version: 1.0\r\n"
            "Content-Type: text/plain; charset=utf-8\r\n"
            "Content-Transfer-Encoding: quoted-printable\r\n"
            "\r\n"
            "a\r\nb");
}

TEST(MailMessageWriter, AnAttachmentIsAPartOfItsOwn) {
  auto message = plain();
  message.attachments.push_back(
      {{std::byte{'h'}, std::byte{'i'}}, "application/x-plist", "n.plist"});
  EXPECT_THAT(written(message), HasSubstr("\r\nContent-Type: application/x-plist;\r\n"
                                          " name=\"n.plist\"\r\n"
                                          "Content-Transfer-Encoding: base64\r\n"
                                          "Content-Disposition: attachment;\r\n"
                                          " filename=\"n.plist\"\r\n\r\naGk=\r\n"));
}

TEST(MailMessageWriter, NoTextBeginsAFieldOfItsOwn) {
  auto message = plain("a\r\nBcc: x@y.example\n\n<p>", "b");
  message.attachments.push_back({{}, "text/plain\r\nX-Bad: 1", "n\"\r\nX-Bad: 1\r\n\r\nc"});
  for (const auto& line : linesOf(written(message))) {
    EXPECT_FALSE(line.starts_with("Bcc:") || line.starts_with("X-Bad:") || line == "c") << line;
  }
  EXPECT_THAT(written(message), HasSubstr("Content-Type: application/octet-stream;"));
}

TEST(MailMessageWriter, WhatIsNoAddressIsNotWritten) {
  for (const auto* address :
       {"", "a", "a@", "@b", "a b@c", "a@b c", "a@b\r\nBcc: x@y", "<a@b>", "a@b,c@d", "a@b@c",
        "-a@b", "\"a\"@b", "a..b@c", ".a@b", "a@b.", "ä@b"}) {
    EXPECT_FALSE(MailMessageWriter::isAddress(address)) << address;
    auto message = plain();
    message.recipients = {address};
    EXPECT_EQ(MailMessageWriter::write(message, {}), std::nullopt) << address;
    if (*address) {
      EXPECT_EQ(MailMessageWriter::write(plain(), {address, {}, false}), std::nullopt) << address;
    }
  }
  EXPECT_FALSE(MailMessageWriter::isAddress(std::string(250, 'a').append("@b.example")));
  EXPECT_TRUE(MailMessageWriter::isAddress("first.last+tag@sub.b-c.example"));
}

TEST(MailMessageWriter, WithoutARecipientThereIsNoMessage) {
  auto message = plain();
  message.recipients.clear();
  EXPECT_EQ(MailMessageWriter::write(message, {}), std::nullopt);
}

TEST(MailMessageWriter, SeveralRecipientsShareOneField) {
  auto message = plain();
  message.recipients = {"a@b.example", "c@d.example"};
  EXPECT_THAT(written(message), HasSubstr("To: a@b.example,\r\n c@d.example\r\n"));
}

TEST(MailMessageWriter, EveryLineIsShortAndInASCIIWhateverTheTexts) {
  const std::string wide = "Ünï日本🎉 ";
  std::string text;
  for (int times = 0; times < 60; ++times) {
    text += wide + std::string(static_cast<std::size_t>(times) * 3, 'x') + "=\t ";
  }
  auto message = plain(text, text + "\n" + text);
  message.attachments.push_back({PropertyListData(5000, std::byte{0xFF}), "a/b", text});
  for (const auto& line : linesOf(written(message))) {
    EXPECT_LE(line.size(), 78U) << line;
    EXPECT_TRUE(std::ranges::all_of(line, [](char letter) {
      return letter == '\t' || (letter >= ' ' && letter <= '~');
    })) << line;
    EXPECT_FALSE(line.ends_with(' ') || line.ends_with('\t'))
        << "blanks at a line's end are lost on the way";
  }
}

TEST(MailMessageWriter, ALongPlainSubjectIsFoldedAtItsBlanks) {
  std::string subject = "word";
  for (int times = 0; times < 40; ++times) {
    subject += " word";
  }
  EXPECT_THAT(written(plain(subject)), HasSubstr("word\r\n word"));
  EXPECT_THAT(written(plain(subject)), Not(HasSubstr("=?")));
}

TEST(MailMessageWriter, WhatCarriersOfMailWouldChangeIsEncoded) {
  const auto lines = linesOf(written(plain("s", "From me\n.\n..\nFrom")));
  ASSERT_GE(lines.size(), 4U);
  EXPECT_EQ(std::vector(lines.end() - 4, lines.end()),
            (std::vector<std::string>{"=46rom me", "=2E", "..", "From"}));
}

TEST(MailMessageWriter, AllWaysToEndALineAreOne) {
  EXPECT_THAT(written(plain("s", "a\r\nb\rc\nd")), testing::EndsWith("\r\n\r\na\r\nb\r\nc\r\nd"));
}

TEST(MailMessageWriter, ADraftIsOpenedForEditing) {
  EXPECT_THAT(written(plain(), {"", {}, true}), HasSubstr("\r\nX-Unsent: 1\r\n"));
  EXPECT_THAT(written(plain()), Not(HasSubstr("X-Unsent")));
}
