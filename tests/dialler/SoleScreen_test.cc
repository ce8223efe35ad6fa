#include "dialler/desk/SoleScreen.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <fstream>

#include <gtest/gtest.h>

namespace {

using Otherwise = SoleScreen::Otherwise;

class SoleScreenTest : public testing::Test {
 protected:
  SoleScreenTest() { qputenv("XDG_RUNTIME_DIR", folder.path().toLocal8Bit()); }

  QTemporaryDir folder;
  int count = 1;
  char name[5] = "test";
  char* names[2] = {name, nullptr};
  QCoreApplication application{count, names};
};

TEST_F(SoleScreenTest, OneHasItAndHearsOfAllOthers) {
  SoleScreen first(QStringLiteral("call"));
  ASSERT_TRUE(first.take(Otherwise::Knock));
  EXPECT_TRUE(first.take(Otherwise::Knock));
  for (int i = 0; i < 9; ++i) {
    EXPECT_FALSE(SoleScreen(QStringLiteral("call")).take(Otherwise::Knock));
  }
  EXPECT_FALSE(SoleScreen(QStringLiteral("call")).take(Otherwise::Nothing));
  // Those that came before anybody listened count as well.
  QSignalSpy knocks(&first, &SoleScreen::knocked);
  first.listen();
  while (knocks.size() < 9) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  EXPECT_FALSE(SoleScreen(QStringLiteral("call")).take(Otherwise::Knock));
  while (knocks.size() < 10) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  EXPECT_EQ(knocks.size(), 10);
}

TEST_F(SoleScreenTest, OtherScreensAreOthers) {
  SoleScreen first(QStringLiteral("call"));
  SoleScreen second(QStringLiteral("keypad"));
  EXPECT_TRUE(first.take(Otherwise::Knock));
  EXPECT_TRUE(second.take(Otherwise::Knock));
}

TEST_F(SoleScreenTest, GivenBackItIsTheNextOnes) {
  SoleScreen first(QStringLiteral("call"));
  ASSERT_TRUE(first.take(Otherwise::Knock));
  first.giveBack();
  SoleScreen second(QStringLiteral("call"));
  EXPECT_TRUE(second.take(Otherwise::Knock));
  EXPECT_FALSE(first.take(Otherwise::Knock));
}

TEST_F(SoleScreenTest, WhatAnEndedProcessLeftBehindIsInNobodysWay) {
  // A file in the socket's place, to which nobody answers.
  std::ofstream(folder.filePath(QStringLiteral("quietdial-call")).toStdString()) << "x";
  SoleScreen next(QStringLiteral("call"));
  EXPECT_TRUE(next.take(Otherwise::Knock));
  EXPECT_FALSE(SoleScreen(QStringLiteral("call")).take(Otherwise::Knock));
}

TEST_F(SoleScreenTest, WithoutAFolderForItEverybodyHasIt) {
  qunsetenv("XDG_RUNTIME_DIR");
  SoleScreen first(QStringLiteral("call"));
  SoleScreen second(QStringLiteral("call"));
  EXPECT_TRUE(first.take(Otherwise::Knock));
  EXPECT_TRUE(second.take(Otherwise::Knock));
}

}  // namespace
