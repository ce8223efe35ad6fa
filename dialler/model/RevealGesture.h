#pragma once

#include <QObject>
#include <QPointF>
#include <functional>
#include <qqmlintegration.h>

/// How a finger on the green button brings the anonymous one: by a swipe to either side, by
/// holding, or not at all where that one stands there anyway. What it has begun can be given up
/// half-way, and then nothing has been pressed. Places are in points, in any one system. Main
/// thread.
class RevealGesture : public QObject {
  Q_OBJECT
  QML_ELEMENT
  /// 0 swipe, 1 hold, 2 always there. Another one takes back what was brought.
  Q_PROPERTY(int mode READ mode WRITE setMode NOTIFY changed)
  /// From the green button to where the other one comes to stand.
  Q_PROPERTY(qreal distance MEMBER distance_)
  Q_PROPERTY(bool pressed READ isPressed NOTIFY changed)
  /// Whether it is there, to be pressed.
  Q_PROPERTY(bool revealed READ isRevealed NOTIFY changed)
  /// How far a swipe has pulled it out, from 0 to 1.
  Q_PROPERTY(qreal pull READ pull NOTIFY changed)
  /// How much of the time to hold has passed, from 0 to 1.
  Q_PROPERTY(qreal fill READ fill NOTIFY changed)

 public:
  /// In milliseconds, from any moment on.
  using Clock = std::function<qint64()>;

  enum Mode { Swipe, Hold, Always };
  Q_ENUM(Mode)

  static constexpr qreal kSlop = 10;        ///< A finger that moves less has not moved.
  static constexpr qint64 kTapTime = 250;   ///< A hold begins after it.
  static constexpr qint64 kHoldTime = 500;  ///< And takes that long.

  explicit RevealGesture(QObject* parent = nullptr);
  RevealGesture(Clock clock, QObject* parent);

  int mode() const { return mode_; }
  void setMode(int mode);
  bool isPressed() const { return pressed_; }
  bool isRevealed() const { return revealed_ || mode_ == Always; }
  qreal pull() const { return pull_; }
  qreal fill() const { return fill_; }

  Q_INVOKABLE void press(QPointF place);
  Q_INVOKABLE void move(QPointF place);
  Q_INVOKABLE void release();
  Q_INVOKABLE void cancel();
  /// Time has passed.
  Q_INVOKABLE void tick();
  /// Without a finger.
  Q_INVOKABLE void reveal();
  Q_INVOKABLE void hide();

 signals:
  void changed();
  /// The green button was tapped.
  void tapped();

 private:
  void end();

  Clock clock_;
  int mode_ = Always;
  qreal distance_ = 88;
  bool pressed_ = false;
  bool moved_ = false;
  bool done_ = false;  // what this finger does is used up
  bool revealed_ = false;
  qreal pull_ = 0;
  qreal fill_ = 0;
  QPointF start_;
  qint64 pressedAt_ = 0;
};
