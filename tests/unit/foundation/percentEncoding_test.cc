#include "platform/foundation/percentEncoding.h"

#include <gtest/gtest.h>

namespace {

TEST(PercentEncoding, ExactlyTheCharactersOfAHostStay) {
  constexpr std::string_view kAllowed =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~!$&'()*+,;=:[]";
  for (int byte = 0; byte < 256; ++byte) {
    const char character = static_cast<char>(byte);
    const auto encoded = stringByAddingPercentEncodingWithURLHostAllowedCharacters({&character, 1});
    if (kAllowed.find(character) != std::string_view::npos) {
      EXPECT_EQ(encoded, std::string(1, character));
    } else {
      char expected[4];
      std::snprintf(expected, sizeof expected, "%%%02X", byte);
      EXPECT_EQ(encoded, expected);
    }
  }
}

TEST(PercentEncoding, LettersOfSeveralBytesAreEncodedByteByByte) {
  EXPECT_EQ(
      stringByAddingPercentEncodingWithURLHostAllowedCharacters("\xE2\x82\xAC|\xF0\x9F\x93\x9E"),
      "%E2%82%AC%7C%F0%9F%93%9E");
  EXPECT_EQ(stringByAddingPercentEncodingWithURLHostAllowedCharacters(""), "");
}

TEST(PercentEncoding, OnlyLettersDigitsAndTheMarksThatAreAskedForStay) {
  EXPECT_EQ(percentEncoded("aZ09-._~ !@/%", kUnreservedMarks), "aZ09-._~%20%21%40%2F%25");
  EXPECT_EQ(percentEncoded("aZ09-\xC3\xA4", ""), "aZ09%2D%C3%A4");
}

}  // namespace
