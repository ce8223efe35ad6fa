#include <gtest/gtest.h>

#include "linux/propertylist/BinaryPropertyListWriter.h"
#include "linux/propertylist/PropertyListSerialization.h"
#include "tests/support/sampleSettings.h"

namespace {

// A file with these objects, whose references and offsets take one byte each; the first is the top.
std::string binaryFile(const std::vector<std::string>& objects) {
  std::string bytes = "bplist00";
  std::string table;
  for (const auto& object : objects) {
    table += static_cast<char>(bytes.size());
    bytes += object;
  }
  const auto start = bytes.size();
  bytes += table + std::string(6, '\0') + "\x01\x01" + std::string(7, '\0') +
           static_cast<char>(objects.size()) + std::string(15, '\0') + static_cast<char>(start);
  return bytes;
}

std::optional<PropertyListValue> roundTrip(const PropertyListValue& value) {
  const auto bytes = bytesFromPropertyList(value);
  return bytes ? propertyListFromBytes(*bytes) : std::nullopt;
}

}  // namespace

TEST(BinaryPropertyList, EveryKindComesBackUnchanged) {
  auto settings = foreignSettings();
  settings.emplace("fraction", PropertyListDate{722183049.12345678});
  settings.emplace("farAway", PropertyListDate{1e300});
  settings.emplace("uid", PropertyListUID{0x1234567890});
  settings.emplace("smallUID", PropertyListUID{7});
  settings.emplace("controls", std::string("a\0b\rc\x1B", 6));
  settings.emplace("loneSurrogate", "\xED\xA0\x80z");
  for (const auto& [key, value] : settings) {
    const auto bytes = BinaryPropertyListWriter::write(PropertyListDictionary{{key, value}});
    ASSERT_TRUE(bytes) << key;
    const auto back = dictionaryFromBytes(*bytes);
    ASSERT_TRUE(back) << key;
    EXPECT_EQ(back->at(key), value) << key;
  }
}

TEST(BinaryPropertyList, IsChosenWhereXMLCannotCarryAValue) {
  for (const PropertyListValue& value :
       {PropertyListValue("a\rb"), PropertyListValue(std::string("a\0b", 3)),
        PropertyListValue(PropertyListUID{5}), PropertyListValue(PropertyListDate{0.5}),
        PropertyListValue(PropertyListDictionary{{"\x01", 1}})}) {
    EXPECT_TRUE(bytesFromPropertyList(value)->starts_with("bplist00"));
    EXPECT_EQ(roundTrip(value), value);
  }
  EXPECT_TRUE(bytesFromPropertyList("a\nb")->starts_with("<?xml"));
}

TEST(BinaryPropertyList, TextThatIsNotUTF8CannotBeWritten) {
  EXPECT_EQ(bytesFromPropertyList("\xFF"), std::nullopt);
  EXPECT_EQ(bytesFromPropertyList(PropertyListDictionary{{"\xC3", 1}}), std::nullopt);
}

TEST(BinaryPropertyList, ANULInATextIsPartOfIt) {
  const auto value =
      propertyListFromBytes(binaryFile({std::string("\x53"
                                                    "a\0b",
                                                    4)}));
  EXPECT_EQ(value, PropertyListValue(std::string("a\0b", 3)));
  EXPECT_EQ(propertyListFromBytes(binaryFile({std::string("\x62\0\0\0z", 5)})),
            PropertyListValue(std::string("\0z", 2)));
}

TEST(BinaryPropertyList, IntegersOfEveryWidthKeepTheirSign) {
  EXPECT_EQ(propertyListFromBytes(binaryFile({"\x10\xFF"})), PropertyListValue(255));
  EXPECT_EQ(propertyListFromBytes(binaryFile({"\x12\xFF\xFF\xFF\xFF"})),
            PropertyListValue(4294967295));
  EXPECT_EQ(propertyListFromBytes(binaryFile({"\x13" + std::string(8, '\xFF')})),
            PropertyListValue(-1));
  EXPECT_EQ(
      propertyListFromBytes(binaryFile({"\x14" + std::string(8, '\0') + std::string(8, '\xFF')})),
      PropertyListValue(std::numeric_limits<std::uint64_t>::max()));
  EXPECT_EQ(propertyListFromBytes(binaryFile({"\x14" + std::string(16, '\xFF')})),
            PropertyListValue(-1));
  EXPECT_EQ(
      propertyListFromBytes(binaryFile({"\x14" + std::string(8, '\x01') + std::string(8, '\0')})),
      std::nullopt);
}

TEST(BinaryPropertyList, ShortRealsAreRead) {
  EXPECT_EQ(propertyListFromBytes(binaryFile({std::string("\x22\x3F\0\0\0", 5)})),
            PropertyListValue(0.5));
}

TEST(BinaryPropertyList, ObjectsWithoutACounterpartMakeTheFileUnreadable) {
  for (const auto& object :
       {std::string(1, '\0'), std::string("\x0C"), std::string("\xC0"), std::string("\x70"),
        std::string("\x51\x80"), std::string("\x32") + std::string(4, '\0')}) {
    EXPECT_EQ(propertyListFromBytes(binaryFile({object})), std::nullopt);
  }
}

TEST(BinaryPropertyList, SharedObjectsAreReadForEachReference) {
  EXPECT_EQ(propertyListFromBytes(binaryFile({"\xA2\x01\x01", "\x51z"})),
            PropertyListValue(PropertyListArray{"z", "z"}));
}

TEST(BinaryPropertyList, AKeyThatIsNoTextMakesTheFileUnreadable) {
  EXPECT_EQ(propertyListFromBytes(binaryFile({"\xD1\x01\x01", "\x09"})), std::nullopt);
}

TEST(BinaryPropertyList, CyclesEndWithoutAValue) {
  EXPECT_EQ(propertyListFromBytes(binaryFile({std::string("\xA1\x00", 2)})), std::nullopt);
  EXPECT_EQ(propertyListFromBytes(binaryFile({std::string("\xA2\x00\x00", 3)})), std::nullopt);
  EXPECT_EQ(
      propertyListFromBytes(binaryFile({"\xA1\x01", std::string("\xD1\x02\x00", 3), "\x51z"})),
      std::nullopt);
}

TEST(BinaryPropertyList, ReferencesOutOfRangeMakeTheFileUnreadable) {
  EXPECT_EQ(propertyListFromBytes(binaryFile({"\xA1\x05"})), std::nullopt);
  EXPECT_EQ(propertyListFromBytes(binaryFile({"\xAF\x13" + std::string(8, '\xFF')})), std::nullopt);
  EXPECT_EQ(propertyListFromBytes(binaryFile({"\x5F\x13" + std::string(8, '\xFF')})), std::nullopt);
  EXPECT_EQ(propertyListFromBytes("bplist00" + std::string(32, '\xFF')), std::nullopt);
  EXPECT_EQ(propertyListFromBytes("bplist00" + std::string(32, '\0')), std::nullopt);
}
