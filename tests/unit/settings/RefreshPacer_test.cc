#include "settings/services/RefreshPacer.h"

#include <gtest/gtest.h>

namespace {

// Refreshes handed out over `seconds` when asked `rate` times a second.
int refreshesOver(double seconds, double interval, double rate) {
  RefreshPacer pacer;
  pacer.start(100, interval);
  int refreshes = 0;
  const int questions = static_cast<int>(seconds * rate);
  for (int question = 1; question <= questions; ++question) {
    refreshes += pacer.take(100 + question / rate);
  }
  return refreshes;
}

TEST(RefreshPacer, GivesTheScreensRateAtWhateverRateItIsAsked) {
  for (const double screen : {24.0, 60.0, 75.0, 144.0}) {
    for (const double asked : {3.0, 30.0, 60.0, 62.0, 190.0, 1000.0}) {
      EXPECT_NEAR(refreshesOver(10, 1 / screen, asked), 10 * screen, 1) << screen << ' ' << asked;
    }
  }
}

TEST(RefreshPacer, NothingIsDueBeforeTheInterval) {
  RefreshPacer pacer;
  pacer.start(5, 0.25);
  EXPECT_EQ(pacer.nextDue(), 5.25);
  EXPECT_EQ(pacer.take(5.2), 0);
  EXPECT_EQ(pacer.take(5.3), 1);
  EXPECT_EQ(pacer.take(5.3), 0);
  EXPECT_EQ(pacer.nextDue(), 5.5);
}

TEST(RefreshPacer, BeingAskedLateCostsNoRefresh) {
  RefreshPacer pacer;
  pacer.start(0, 0.25);
  EXPECT_EQ(pacer.take(0.9), 3);
  EXPECT_EQ(pacer.nextDue(), 1);
}

TEST(RefreshPacer, AfterALongSleepTheGridStartsAnew) {
  RefreshPacer pacer;
  pacer.start(0, 0.25);
  EXPECT_EQ(pacer.take(3600), 1);
  EXPECT_EQ(pacer.nextDue(), 3600.25);
}

TEST(RefreshPacer, AClockThatStandsStillGivesNothing) {
  RefreshPacer pacer;
  pacer.start(7, 0.25);
  EXPECT_EQ(pacer.take(7), 0);
  EXPECT_EQ(pacer.take(6), 0);
}

}  // namespace
