#include "settings/accessibility/SpokenText.h"

#include <gtest/gtest.h>

namespace {

TEST(SpokenTextTest, ADialCodeIsReadSignBySign) {
  EXPECT_EQ(spokenText(QStringLiteral("#31#")), QStringLiteral("hash three one hash"));
  EXPECT_EQ(spokenText(QStringLiteral(" *67 ")), QStringLiteral("star six seven"));
  EXPECT_EQ(spokenText(QStringLiteral("0123456789")),
            QStringLiteral("zero one two three four five six seven eight nine"));
}

TEST(SpokenTextTest, AnyOtherTextIsReadAsItIs) {
  for (const char* text : {"", "5", "*", "Hold", "31 calls", "#31#, then", "+49", "1.0"}) {
    EXPECT_EQ(spokenText(QString::fromLatin1(text)), QString::fromLatin1(text));
  }
}

}  // namespace
