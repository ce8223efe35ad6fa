#include "dialler/model/Keypad.h"

#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class KeypadTest : public testing::Test {
 protected:
  KeypadTest() {
    QObject::connect(&keypad, &Keypad::callWanted, [this](const QString& number, bool anonymous) {
      calls.emplace_back(number.toStdString(), anonymous);
    });
  }
  void type(const QString& signs) {
    for (const QChar sign : signs) {
      keypad.type(sign);
    }
  }
  std::string number() const { return keypad.number().toStdString(); }

  DiallerSettings settings;
  Keypad keypad{[this] { return settings; }};
  std::vector<std::pair<std::string, bool>> calls;
};

TEST_F(KeypadTest, TakesTheSignsOfANumberAndNoOthers) {
  type(QStringLiteral("+1a2;*#٣\n"));
  EXPECT_EQ(number(), "+12*#");
  keypad.type(QStringLiteral("12"));
  EXPECT_EQ(number(), "+12*#");
  type(QString(100, u'7'));
  EXPECT_EQ(keypad.number().size(), Keypad::kMostSigns);
}

TEST_F(KeypadTest, ErasesOneAndAll) {
  keypad.erase();
  type(QStringLiteral("123"));
  keypad.erase();
  EXPECT_EQ(number(), "12");
  keypad.clear();
  EXPECT_EQ(number(), "");
}

TEST_F(KeypadTest, PastesANumberInWhateverWayItIsWritten) {
  type(QStringLiteral("9"));
  keypad.paste(QStringLiteral(" tel:+49-30-123456\n"));
  EXPECT_EQ(number(), "+4930123456");
  keypad.paste(QStringLiteral("(030) 12 34-56"));
  EXPECT_EQ(number(), "030123456");
  EXPECT_EQ(keypad.remark(), QString());
}

TEST_F(KeypadTest, PastesNothingOfATextThatIsNone) {
  type(QStringLiteral("9"));
  for (const char* text :
       {"", "call me", "030 123456 now", "1\n2", "1;+CGMI", "tel:7042;phone-context=+1"}) {
    keypad.paste(QString::fromUtf8(text));
    EXPECT_EQ(number(), "9") << text;
    EXPECT_NE(keypad.remark(), QString()) << text;
  }
}

TEST_F(KeypadTest, CallsWhatIsTypedAndNothingOtherwise) {
  keypad.call();
  keypad.callAnonymously();
  EXPECT_THAT(calls, IsEmpty());
  type(QStringLiteral("0123"));
  keypad.callAnonymously();
  keypad.call();
  EXPECT_THAT(calls, ElementsAre(Pair("0123", true), Pair("0123", false)));
}

TEST_F(KeypadTest, LooksAsTheSettingsOfTheDialTabSay) {
  settings.keypad = {CallMode::kHold, 4};
  settings.call = {CallMode::kSwipe, 2};
  keypad.readSettings();
  EXPECT_EQ(keypad.mode(), 1);
  EXPECT_EQ(keypad.picture(), 4);
}

}  // namespace
