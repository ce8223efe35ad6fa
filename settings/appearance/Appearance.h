#pragma once

#include <QColor>
#include <QObject>
#include <qqmlintegration.h>

#include "platform/uikit/UIColor.h"
#include "settings/appearance/palette.h"

class QJSEngine;
class QQmlEngine;

/// How the window looks and moves: what the command line asks for, else what the desktop prefers.
/// One for the process; main thread.
class Appearance : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  Q_PROPERTY(bool dark READ isDark NOTIFY changed)
  /// Whether things are to be in their places at once instead of moving there, and animations are
  /// to stand still.
  Q_PROPERTY(bool reducedMotion READ reducesMotion NOTIFY changed)
  /// Whether everything is laid out from right to left.
  Q_PROPERTY(bool mirrored READ isMirrored NOTIFY changed)

 public:
  enum class Scheme { kSystem, kLight, kDark };
  enum class Motion { kSystem, kFull, kReduced };
  enum class Direction { kSystem, kLeftToRight, kRightToLeft };

  static Appearance& shared();
  /// For QML: the shared one.
  static Appearance* create(QQmlEngine* engine, QJSEngine* scripts);

  bool isDark() const;
  bool reducesMotion() const;
  bool isMirrored() const;

  void setScheme(Scheme scheme);
  void setMotion(Motion motion);
  void setDirection(Direction direction);

  /// What holds where System is asked for.
  void setDesktopDark(bool dark);
  void setDesktopReducesMotion(bool reduces);

  /// The colour as it is shown now: the system's own colours by the scheme, any other as it is.
  QColor shown(const UIColor& color) const;
  QColor shown(const palette::Shades& shades) const;

 signals:
  void changed();

 private:
  // Private, or the toolkit would make one of its own for QML.
  Appearance() = default;

  template <class Value>
  void assign(Value& member, Value value);

  Scheme scheme_ = Scheme::kSystem;
  Motion motion_ = Motion::kSystem;
  Direction direction_ = Direction::kSystem;
  bool desktopDark_ = false;
  bool desktopReducesMotion_ = false;
};
