#include "settings/sheets/AttachmentText.h"

#include <string_view>

#include <gtest/gtest.h>

#include "linux/propertylist/PropertyListSerialization.h"

namespace {

PropertyListData dataOf(std::string_view bytes) {
  PropertyListData data;
  for (const char byte : bytes) {
    data.push_back(static_cast<std::byte>(byte));
  }
  return data;
}

std::string textOf(const PropertyListDictionary& dictionary) {
  return readableText(dataOf(bytesFromPropertyList(dictionary).value())).toStdString();
}

TEST(AttachmentTextTest, APropertyListIsReadEntryByEntry) {
  EXPECT_EQ(textOf({{"data", PropertyListData(3)},
                    {"date", PropertyListDate{0}},
                    {"large", 18446744073709551615U},
                    {"no", false},
                    {"number", -7},
                    {"real", 1.5},
                    {"text", "Zürich *31#"},
                    {"yes", true}}),
            "data: 3 bytes\n"
            "date: 2001-01-01T00:00:00Z\n"
            "large: 18446744073709551615\n"
            "no: no\n"
            "number: -7\n"
            "real: 1.5\n"
            "text: “Zürich *31#”\n"
            "yes: yes");
}

TEST(AttachmentTextTest, WhatIsInAnEntryStandsBelowIt) {
  EXPECT_EQ(textOf({{"a", PropertyListDictionary{{"b", PropertyListDictionary{{"c", 1}}}}},
                    {"list", PropertyListArray{"x", PropertyListDictionary{{"y", 2}}}}}),
            "a\n"
            "    b\n"
            "        c: 1\n"
            "list\n"
            "    •: “x”\n"
            "    •\n"
            "        y: 2");
}

TEST(AttachmentTextTest, AnotherTextIsReadAsItIs) {
  EXPECT_EQ(readableText(dataOf("Grüße\nall")), QStringLiteral("Grüße\nall"));
  EXPECT_EQ(readableText({}), QString());
}

TEST(AttachmentTextTest, OfWhatIsNoTextTheLengthIsTold) {
  EXPECT_EQ(readableText(dataOf("\xff\xfe\x80")), QStringLiteral("3 bytes"));
}

TEST(AttachmentTextTest, VeryLongTextsAreCut) {
  EXPECT_EQ(readableText(dataOf(std::string(100'001, 'x'))).size(), 100'000);
  EXPECT_EQ(textOf({{"text", std::string(200'000, 'x')}}).size(), 100'000 + 2U);  // the first quote
}

}  // namespace
