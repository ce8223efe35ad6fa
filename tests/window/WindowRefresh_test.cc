#include "settings/services/WindowRefresh.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <algorithm>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "linux/SystemClock.h"
#include "platform/foundation/Subclass.h"
#include "platform/foundation/method.h"
#include "platform/quartzcore/CADisplayLink.h"

namespace {

class Counter : public Subclass<Counter, NSObject> {
 public:
  static const ClassOf<Counter> classObject;

  void refreshed(const std::shared_ptr<CADisplayLink>& link) {
    ++count;
    time += link->duration();
    if (refreshedHook) {
      refreshedHook();
    }
  }

  int count = 0;
  double time = 0;
  std::function<void()> refreshedHook;
};

constexpr auto kMethods = methods<Counter>(method<&Counter::refreshed>("refreshed:"));
constexpr ClassOf<Counter> Counter::classObject{"Counter", kMethods};

constexpr double kRate = 120;

// A window of the toolkit, drawn off screen, that gives the refreshes.
class WindowRefreshTest : public testing::Test {
 protected:
  WindowRefreshTest() {
    Services services;
    services.clock = std::make_shared<SystemClock>();
    services.displayRefresh = refresh;
    installServices(services);
    window.resize(100, 100);
    window.show();
    refresh->follow(window);
    QObject::connect(&window, &QQuickWindow::afterAnimating, [this] { ++drawn; });
    runUntil([this] { return drawn > 0; });
    link->addToRunLoopForMode(NSRunLoop::mainRunLoop(), NSDefaultRunLoopMode);
  }
  ~WindowRefreshTest() override { link->invalidate(); }

  static bool runUntil(const std::function<bool()>& done, int milliseconds = 20'000) {
    QElapsedTimer time;
    time.start();
    while (!done() && !time.hasExpired(milliseconds)) {
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents,
                                      milliseconds);
    }
    return done();
  }

  /// Seconds that so many refreshes take.
  double secondsFor(int count) {
    QElapsedTimer time;
    time.start();
    const int end = counter->count + count;
    EXPECT_TRUE(runUntil([&] { return counter->count >= end; }));
    return static_cast<double>(time.nsecsElapsed()) * 1e-9;
  }

  /// Seconds that refreshes come later after 240 of them than the rate says, as the least late of
  /// 60 tells: what else the machine does holds some up, and none comes early.
  double drift() {
    constexpr int kRefreshes = 240;
    constexpr int kCompared = 60;
    std::vector<double> lateness;
    QElapsedTimer time;
    time.start();
    counter->refreshedHook = [&] {
      lateness.push_back(static_cast<double>(time.nsecsElapsed()) * 1e-9 -
                         static_cast<double>(lateness.size()) / kRate);
    };
    EXPECT_TRUE(runUntil([&] { return lateness.size() >= kRefreshes + kCompared; }));
    counter->refreshedHook = nullptr;
    return *std::min_element(lateness.begin() + kRefreshes, lateness.end()) -
           *std::min_element(lateness.begin(), lateness.begin() + kCompared);
  }

  /// Refreshes that come within half a second.
  int refreshesInHalfASecond() {
    const int before = counter->count;
    QElapsedTimer time;
    time.start();
    QTimer end;
    end.start(500);
    runUntil([&] { return time.hasExpired(500); });
    return counter->count - before;
  }

  std::shared_ptr<WindowRefresh> refresh = std::make_shared<WindowRefresh>(kRate);
  QQuickWindow window;
  int drawn = 0;
  std::shared_ptr<Counter> counter = allocInit<Counter>();
  std::shared_ptr<CADisplayLink> link =
      CADisplayLink::displayLinkWithTargetSelector(counter, "refreshed:");
};

TEST_F(WindowRefreshTest, KeepsTheScreensRateWhereTheToolkitDrawsUnthrottled) {
  QObject::connect(&window, &QQuickWindow::afterAnimating, &window, &QQuickWindow::update);
  window.update();
  EXPECT_NEAR(drift(), 0, 0.03 * 240 / kRate);
}

TEST_F(WindowRefreshTest, KeepsTheScreensRateWhereTheToolkitHardlyDraws) {
  const int before = drawn;
  EXPECT_NEAR(drift(), 0, 0.03 * 240 / kRate);
  // Nothing is drawn just to keep the count.
  EXPECT_LE(drawn - before, 15);
}

TEST_F(WindowRefreshTest, EachRefreshLastsTheScreensInterval) {
  secondsFor(10);
  EXPECT_NEAR(counter->time, counter->count / kRate, 1e-9);
}

TEST_F(WindowRefreshTest, AWindowThatIsNotSeenHasNoRefreshes) {
  secondsFor(5);
  window.hide();
  EXPECT_EQ(refreshesInHalfASecond(), 0);
  window.show();
  secondsFor(5);
}

TEST_F(WindowRefreshTest, APausedLinkHasNoRefreshes) {
  secondsFor(5);
  link->setPaused(true);
  EXPECT_EQ(refreshesInHalfASecond(), 0);
  link->setPaused(false);
  secondsFor(5);
}

}  // namespace

int main(int count, char** values) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  const QGuiApplication application(count, values);
  testing::InitGoogleTest(&count, values);
  return RUN_ALL_TESTS();
}
