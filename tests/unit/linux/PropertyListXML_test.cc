#include <clocale>
#include <cmath>

#include <gtest/gtest.h>

#include "linux/propertylist/PropertyListSerialization.h"
#include "linux/propertylist/XMLPropertyListWriter.h"
#include "tests/support/commaLocale.h"
#include "tests/support/sampleSettings.h"

namespace {

std::optional<PropertyListValue> read(const std::string& element) {
  return propertyListFromBytes("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist>" + element +
                               "</plist>\n");
}

std::string text(const std::string& element) {
  const auto value = read(element);
  const auto* found = value ? value->get<std::string>() : nullptr;
  return found ? *found : "(none)";
}

}  // namespace

TEST(XMLPropertyList, EveryKindComesBackUnchanged) {
  for (const auto& [key, value] : foreignSettings()) {
    const auto bytes = XMLPropertyListWriter::write(PropertyListDictionary{{key, value}});
    ASSERT_TRUE(bytes) << key;
    const auto back = dictionaryFromBytes(*bytes);
    ASSERT_TRUE(back) << key << "\n" << *bytes;
    EXPECT_EQ(back->at(key), value) << key;
  }
}

TEST(XMLPropertyList, SignOfZeroAndNotANumberComeBack) {
  const PropertyListArray reals{-0.0, std::nan("")};
  const auto back = propertyListFromBytes(*XMLPropertyListWriter::write(reals));
  ASSERT_TRUE(back);
  const auto& array = *back->get<PropertyListArray>();
  EXPECT_TRUE(std::signbit(*array[0].get<double>()));
  EXPECT_TRUE(std::isnan(*array[1].get<double>()));
}

TEST(XMLPropertyList, NumbersDoNotFollowTheLocale) {
  ASSERT_TRUE(enterCommaLocale());
  ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  EXPECT_EQ(read("<real>0.5</real>"), PropertyListValue(0.5));
  EXPECT_NE(XMLPropertyListWriter::write(0.5)->find("<real>0.5</real>"), std::string::npos);
  EXPECT_EQ(read("<real>0,5</real>"), std::nullopt);
  std::setlocale(LC_ALL, "C");
}

TEST(XMLPropertyList, IntegersAreDecimalOrHexadecimalAndNeverCut) {
  EXPECT_EQ(read("<integer>010</integer>"), PropertyListValue(10));
  EXPECT_EQ(read("<integer>0x1F</integer>"), PropertyListValue(31));
  EXPECT_EQ(read("<integer> -7\n</integer>"), PropertyListValue(-7));
  EXPECT_EQ(read("<integer>+7</integer>"), PropertyListValue(7));
  EXPECT_EQ(read("<integer>18446744073709551615</integer>"),
            PropertyListValue(std::numeric_limits<std::uint64_t>::max()));
  EXPECT_EQ(read("<integer>-9223372036854775808</integer>"),
            PropertyListValue(std::numeric_limits<std::int64_t>::min()));
  for (const auto* wrong : {"", "abc", "1.9", "1e3", "--1", "+-1", "0x", "18446744073709551616",
                            "-9223372036854775809"}) {
    EXPECT_EQ(read("<integer>" + std::string(wrong) + "</integer>"), std::nullopt) << wrong;
  }
}

TEST(XMLPropertyList, ProcessingInstructionsAndCommentsInATextAreNoPartOfIt) {
  EXPECT_EQ(read("<string>a<?note <b> & ?>b<!-- c -->d</string>"), PropertyListValue("abd"));
  EXPECT_EQ(read("<string>a<?note</string>"), std::nullopt);
  EXPECT_EQ(read("<string>a<!-- c</string>"), std::nullopt);
}

TEST(XMLPropertyList, TextThatIsNoRealOrDateOrDataMakesTheFileUnreadable) {
  for (const auto* wrong : {"<real></real>",
                            "<real>abc</real>",
                            "<real>1e999</real>",
                            "<real>+-1</real>",
                            "<date>not a date</date>",
                            "<date></date>",
                            "<date>2023-02-29T00:00:00Z</date>",
                            "<date>2024-01-01T24:00:00Z</date>",
                            "<data>A</data>",
                            "<data>AA=A</data>",
                            "<data>A?==</data>",
                            "<data>AA</data>",
                            "<true>x</true>",
                            "<string>a</key>",
                            "<blob/>",
                            "<string>&undeclared;</string>",
                            "<string>&#0;</string>",
                            "<string>&#xD800;</string>",
                            "<string>&#1;</string>",
                            "<string>a & b</string>",
                            "<dict><key>a</key></dict>",
                            "<dict><string>a</string></dict>",
                            "<dict><key>a</key><key>b</key></dict>",
                            "<array><string/></dict>",
                            "",
                            "<string/><string/>"}) {
    EXPECT_EQ(read(wrong), std::nullopt) << wrong;
  }
}

TEST(XMLPropertyList, DatesAreThoseOfTheCalendar) {
  EXPECT_EQ(read("<date>2001-01-01T00:00:00Z</date>"), PropertyListValue(PropertyListDate{0}));
  EXPECT_EQ(read("<date>2024-02-29T12:34:56Z</date>"),
            PropertyListValue(PropertyListDate{730902896}));
  EXPECT_EQ(read("<date>1970-01-01T00:00:00Z</date>"),
            PropertyListValue(PropertyListDate{-978307200}));
}

TEST(XMLPropertyList, TextIsReadAsXMLHasIt) {
  EXPECT_EQ(text("<string>a&lt;&gt;&amp;&quot;&apos;&#65;&#x20ac;</string>"),
            "a<>&\"'A\xE2\x82\xAC");
  EXPECT_EQ(text("<string>one\r\ntwo\rthree</string>"), "one\ntwo\nthree");
  EXPECT_EQ(text("<string>a<!-- no -->b<![CDATA[<&>]]>c</string >"), "ab<&>c");
  EXPECT_EQ(text("<string/>"), "");
  EXPECT_EQ(text("<string a='>' b=\"<\">x</string>"), "x");
}

TEST(XMLPropertyList, ANULMakesTheFileUnreadable) {
  EXPECT_EQ(read(std::string("<string>a\0b</string>", 20)), std::nullopt);
}

TEST(XMLPropertyList, DocumentsOfOtherEncodingsAreReadOrRefused) {
  EXPECT_EQ(propertyListFromBytes("\xEF\xBB\xBF<plist><true/></plist>"), PropertyListValue(true));
  std::string utf16("\xFF\xFE");
  for (const char character : std::string("<plist><string>A</string></plist>")) {
    utf16 += character;
    utf16 += '\0';
  }
  EXPECT_EQ(propertyListFromBytes(utf16), PropertyListValue("A"));
  EXPECT_EQ(propertyListFromBytes("<?xml version='1.0' encoding='ISO-8859-1'?><true/>"),
            std::nullopt);
  EXPECT_EQ(propertyListFromBytes("<?xml version='1.0' encoding='utf-8'?><true/>"),
            PropertyListValue(true));
  EXPECT_EQ(read("<string>\xC3</string>"), std::nullopt);
  EXPECT_EQ(read("<string>\xC0\x80</string>"), std::nullopt);
}

TEST(XMLPropertyList, DocumentTypeIsPassedOverAndItsEntitiesAreNotExpanded) {
  EXPECT_EQ(propertyListFromBytes("<!DOCTYPE plist PUBLIC \"a>b\" 'c'><plist><true/></plist>"),
            PropertyListValue(true));
  EXPECT_EQ(propertyListFromBytes(
                "<!DOCTYPE plist [<!ENTITY x \"lol\"><!ENTITY y SYSTEM \"file:///etc/passwd\">]>"
                "<plist><string>&x;&y;</string></plist>"),
            std::nullopt);
}

TEST(XMLPropertyList, NothingButCommentsMayFollow) {
  EXPECT_EQ(propertyListFromBytes("<plist><true/></plist><!-- end -->\n"), PropertyListValue(true));
  EXPECT_EQ(propertyListFromBytes("<plist><true/></plist>x"), std::nullopt);
  EXPECT_EQ(propertyListFromBytes("<plist><true/></plist><plist><true/></plist>"), std::nullopt);
}

TEST(XMLPropertyList, TheLaterOfTwoEqualKeysCounts) {
  const auto value = read("<dict><key>a</key><true/><key>a</key><integer>2</integer></dict>");
  ASSERT_TRUE(value);
  EXPECT_EQ(value->get<PropertyListDictionary>()->at("a"), PropertyListValue(2));
}

TEST(XMLPropertyList, WhatXMLCannotCarryIsNotWrittenInIt) {
  EXPECT_EQ(XMLPropertyListWriter::write("a\rb"), std::nullopt);
  EXPECT_EQ(XMLPropertyListWriter::write(std::string("a\0b", 3)), std::nullopt);
  EXPECT_EQ(XMLPropertyListWriter::write("\x1B"), std::nullopt);
  EXPECT_EQ(XMLPropertyListWriter::write("\xEF\xBF\xBF"), std::nullopt);
  EXPECT_EQ(XMLPropertyListWriter::write("\xED\xA0\x80"), std::nullopt);
  EXPECT_EQ(XMLPropertyListWriter::write(PropertyListDictionary{{"a\rb", 1}}), std::nullopt);
  EXPECT_EQ(XMLPropertyListWriter::write(PropertyListDate{0.25}), std::nullopt);
  EXPECT_EQ(XMLPropertyListWriter::write(PropertyListDate{1e15}), std::nullopt);
  EXPECT_EQ(XMLPropertyListWriter::write(PropertyListUID{1}), std::nullopt);
}
