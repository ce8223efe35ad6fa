#include "linux/MailtoAddress.h"

#include <string>

#include <gtest/gtest.h>

namespace {

// What is left of an address; "none" where it is no address of a mail.
std::string rebuilt(std::string_view text) {
  const auto address = MailtoAddress::parse(text);
  return address ? address->text() : "none";
}

}  // namespace

TEST(MailtoAddress, RecipientsSubjectAndBodyAreKept) {
  EXPECT_EQ(rebuilt("mailto:a@b.example"), "mailto:a@b.example");
  EXPECT_EQ(rebuilt("MAILTO:a@b.example,c%40d.example"), "mailto:a@b.example,c@d.example");
  EXPECT_EQ(rebuilt("mailto:a@b.example?subject=x%20y&body=1%262"),
            "mailto:a@b.example?subject=x%20y&body=1%262");
  EXPECT_EQ(rebuilt("mailto:a@b.example?BODY=x&Subject=y"), "mailto:a@b.example?subject=y&body=x");
  EXPECT_EQ(rebuilt("mailto:?subject=%C3%A4"), "mailto:?subject=%C3%A4");
  EXPECT_EQ(rebuilt("mailto:"), "mailto:");
}

TEST(MailtoAddress, AllOtherFieldsAreLeftOut) {
  EXPECT_EQ(rebuilt("mailto:a@b.example?attach=/etc/passwd&attachment=/etc/passwd&cc=c@d.example&"
                    "bcc=c@d.example&to=c@d.example&in-reply-to=x&from=y&body=z&%73ubject=w#v"),
            "mailto:a@b.example?body=z");
  EXPECT_EQ(rebuilt("mailto:a@b.example?&&=&subject&body="), "mailto:a@b.example");
}

TEST(MailtoAddress, NoValueBeginsAFieldOfItsOwn) {
  EXPECT_EQ(rebuilt("mailto:a@b.example?subject=x%0D%0ABcc:%20c@d.example"),
            "mailto:a@b.example?subject=x%20%20Bcc%3A%20c%40d.example");
  EXPECT_EQ(rebuilt("mailto:a@b.example?subject=x%26attach%3D/etc/passwd"),
            "mailto:a@b.example?subject=x%26attach%3D%2Fetc%2Fpasswd");
  EXPECT_EQ(rebuilt("mailto:a@b.example?body=a%0Db%0Ac%0D%0Ad%00e%7Ff%09g"),
            "mailto:a@b.example?body=a%0D%0Ab%0D%0Ac%0D%0Ad%20e%20f%20g");
}

TEST(MailtoAddress, WhatIsNoneIsNotRead) {
  for (const auto* text : {
           "",
           "mailto",
           "http://a@b.example",
           " mailto:a@b.example",
           "mailto:a",
           "mailto:a@",
           "mailto:,a@b.example",
           "mailto:a@b.example,c",
           "mailto:-a@b.example",
           "mailto:a@b.example%0A",
           "mailto:a%20b@c.example",
           "mailto:%22a%22@b.example",
           "mailto:a@b.example?subject=%",
           "mailto:a@b.example?subject=%4",
           "mailto:a@b.example?body=%4g",
           "mailto:a%4@b.example",
           "mailto:a@b.example?cc=%zz",
       }) {
    EXPECT_EQ(rebuilt(text), "none") << text;
  }
}

TEST(MailtoAddress, AnyTextIsReadToItsEnd) {
  const std::string longSubject(1'000'000, '%');
  EXPECT_EQ(rebuilt("mailto:a@b.example?subject=" + longSubject), "none");
  const std::string many(1'000'000, '&');
  EXPECT_EQ(rebuilt("mailto:a@b.example?" + many), "mailto:a@b.example");
}
