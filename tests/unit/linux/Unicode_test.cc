#include "linux/propertylist/Unicode.h"

#include <gtest/gtest.h>

namespace {

char32_t decoded(std::string_view bytes) {
  const auto character = decodeUTF8(bytes);
  EXPECT_TRUE(character && character->length == bytes.size());
  return character ? character->codePoint : 0;
}

}  // namespace

TEST(Unicode, TheFirstAndLastCharacterOfEachLengthComeBack) {
  for (const char32_t character :
       {0x0U, 0x7FU, 0x80U, 0x7FFU, 0x800U, 0xD800U, 0xDFFFU, 0xFFFFU, 0x10000U, 0x10FFFFU}) {
    std::string bytes;
    appendUTF8(bytes, character);
    EXPECT_EQ(bytes.size(), character < 0x80      ? 1U
                            : character < 0x800   ? 2U
                            : character < 0x10000 ? 3U
                                                  : 4U);
    EXPECT_EQ(decoded(bytes), character);
  }
}

TEST(Unicode, WhatIsLongerThanNeedBeBeyondTheLastOrCutShortIsNoCharacter) {
  for (const char* bytes :
       {"", "\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
        "\xF5\x80\x80\x80", "\xC2", "\xE1\x80", "\xC2\x41"}) {
    EXPECT_FALSE(decodeUTF8(bytes)) << bytes;
  }
}

TEST(Unicode, OnlyWhatComesFirstIsDecoded) {
  const auto character = decodeUTF8("\xC3\xA4z");
  ASSERT_TRUE(character);
  EXPECT_EQ(character->codePoint, 0xE4U);
  EXPECT_EQ(character->length, 2U);
}
