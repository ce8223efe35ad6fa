#include "settings/window/TapListener.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStyleHints>
#include <vector>

#include <QtTest/qtesttouch.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Takes every press, and everything that follows from it.
class Taker : public QQuickItem {
 public:
  Taker() {
    setSize({200, 200});
    setAcceptedMouseButtons(Qt::AllButtons);
    setAcceptTouchEvents(true);
  }

 protected:
  void mousePressEvent(QMouseEvent* /*event*/) override {}
  void touchEvent(QTouchEvent* /*event*/) override {}
};

class TapListenerTest : public testing::Test {
 protected:
  TapListenerTest() {
    QObject::connect(&listener, &TapListener::tapped,
                     [this](QPointF place) { taps.push_back(place); });
  }

  void send(QEvent::Type type, QPointF place, quint64 time, Qt::MouseButton button,
            Qt::MouseButtons buttons, const QPointingDevice* device = mouse()) {
    QMouseEvent event(type, place, place, place, button, buttons, Qt::NoModifier, device);
    event.setTimestamp(time);
    QCoreApplication::sendEvent(&window, &event);
  }
  void press(QPointF place, quint64 time, const QPointingDevice* device = mouse()) {
    send(QEvent::MouseButtonPress, place, time, Qt::LeftButton, Qt::LeftButton, device);
  }
  void move(QPointF place, quint64 time) {
    send(QEvent::MouseMove, place, time, Qt::NoButton, Qt::LeftButton);
  }
  void release(QPointF place, quint64 time, const QPointingDevice* device = mouse()) {
    send(QEvent::MouseButtonRelease, place, time, Qt::LeftButton, Qt::NoButton, device);
  }
  static const QPointingDevice* mouse() { return QPointingDevice::primaryPointingDevice(); }
  static QPointingDevice* screen() {
    static auto* device = QTest::createTouchDevice();
    return device;
  }
  QTest::QTouchEventSequence fingers() { return QTest::touchEvent(&window, screen(), false); }

  QQuickWindow window;
  TapListener listener{window};
  std::vector<QPointF> taps;
};

TEST_F(TapListenerTest, AClickIsATapWhereItIsReleased) {
  press({10, 20}, 100);
  EXPECT_THAT(taps, IsEmpty());
  move({12, 20}, 120);
  release({12, 21}, 140);
  EXPECT_THAT(taps, ElementsAre(QPointF(12, 21)));
}

TEST_F(TapListenerTest, ADoubleClickIsTwoTaps) {
  press({10, 20}, 100);
  release({10, 20}, 110);
  press({10, 20}, 200);  // as the toolkit tells it, press and double click
  send(QEvent::MouseButtonDblClick, {10, 20}, 200, Qt::LeftButton, Qt::LeftButton);
  release({10, 20}, 210);
  EXPECT_THAT(taps, ElementsAre(QPointF(10, 20), QPointF(10, 20)));
}

TEST_F(TapListenerTest, AFingersTapIsOneTapThoughItIsToldAgainAsAMouses) {
  fingers().press(0, {10, 20}).commit(false);
  fingers().release(0, {10, 20}).commit(false);
  press({10, 20}, 100, screen());
  release({10, 20}, 110, screen());
  EXPECT_THAT(taps, ElementsAre(QPointF(10, 20)));
}

TEST_F(TapListenerTest, APensTapCounts) {
  const QPointingDevice pen(QStringLiteral("pen"), 7, QInputDevice::DeviceType::Stylus,
                            QPointingDevice::PointerType::Pen, QInputDevice::Capability::Position,
                            1, 1);
  press({10, 20}, 100, &pen);
  release({10, 20}, 110, &pen);
  EXPECT_THAT(taps, ElementsAre(QPointF(10, 20)));
}

TEST_F(TapListenerTest, ATapIsHeardWhateverTakesIt) {
  Taker taker;
  taker.setParentItem(window.contentItem());
  press({10, 20}, 100);
  release({10, 20}, 110);
  fingers().press(0, {30, 40}).commit(false);
  fingers().release(0, {30, 40}).commit(false);
  EXPECT_THAT(taps, ElementsAre(QPointF(10, 20), QPointF(30, 40)));
}

TEST_F(TapListenerTest, APressThatMovesIsNoTapThoughItComesBack) {
  const double far = QGuiApplication::styleHints()->startDragDistance();
  press({10, 20}, 100);
  move({10, 20 + far}, 120);
  move({10, 20}, 130);
  release({10, 20}, 140);
  fingers().press(0, {10, 20}).commit(false);
  fingers().move(0, QPoint(10, 20 + static_cast<int>(far))).commit(false);
  fingers().release(0, {10, 20}).commit(false);
  EXPECT_THAT(taps, IsEmpty());
}

TEST_F(TapListenerTest, ALongPressIsNoTap) {
  const auto hold =
      static_cast<quint64>(QGuiApplication::styleHints()->mousePressAndHoldInterval());
  press({10, 20}, 100);
  release({10, 20}, 100 + hold - 1);
  EXPECT_THAT(taps, ElementsAre(QPointF(10, 20)));
  press({10, 20}, 10'000);
  release({10, 20}, 10'000 + hold);
  EXPECT_EQ(taps.size(), 1U);
}

TEST_F(TapListenerTest, OtherButtonsDoNotTap) {
  send(QEvent::MouseButtonPress, {10, 20}, 100, Qt::RightButton, Qt::RightButton);
  send(QEvent::MouseButtonRelease, {10, 20}, 110, Qt::RightButton, Qt::NoButton);
  press({10, 20}, 200);
  send(QEvent::MouseButtonPress, {10, 20}, 210, Qt::RightButton, Qt::LeftButton | Qt::RightButton);
  send(QEvent::MouseButtonRelease, {10, 20}, 220, Qt::RightButton, Qt::LeftButton);
  release({10, 20}, 230);
  EXPECT_THAT(taps, IsEmpty());
}

TEST_F(TapListenerTest, TwoFingersDoNotTap) {
  fingers().press(0, {10, 20}).commit(false);
  auto both = fingers();
  both.press(1, {60, 20});
  both.stationary(0);
  both.commit(false);
  fingers().release(1, {60, 20}).stationary(0).commit(false);
  fingers().release(0, {10, 20}).commit(false);
  EXPECT_THAT(taps, IsEmpty());
}

TEST_F(TapListenerTest, ATouchThatIsTakenAwayIsNoTap) {
  fingers().press(0, {10, 20}).commit(false);
  QTouchEvent cancel(QEvent::TouchCancel, screen());
  QCoreApplication::sendEvent(&window, &cancel);
  fingers().release(0, {10, 20}).commit(false);
  EXPECT_THAT(taps, IsEmpty());
}

}  // namespace
