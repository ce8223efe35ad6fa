#include "changes/nearestWord.h"

#include <gtest/gtest.h>

namespace {

TEST(NearestWord, IsTheOneWithTheFewestLettersAstray) {
  const std::vector<std::string> words{"get", "set", "list", "reset", "dialerMode"};
  EXPECT_EQ(nearestWord("lst", words), "list");
  EXPECT_EQ(nearestWord("lits", words), "list");
  EXPECT_EQ(nearestWord("resett", words), "reset");
  EXPECT_EQ(nearestWord("DIALERMODE", words), "dialerMode");
  EXPECT_EQ(nearestWord("dailermod", words), "dialerMode");
}

TEST(NearestWord, IsNoneWhereNoneIsNear) {
  const std::vector<std::string> words{"get", "list"};
  EXPECT_EQ(nearestWord("x", words), "");
  EXPECT_EQ(nearestWord("", words), "");
  EXPECT_EQ(nearestWord("export", words), "");
  EXPECT_EQ(nearestWord(std::string(100'000, 'l'), words), "");
}

}  // namespace
