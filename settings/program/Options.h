#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <string>

#include "linux/HostMap.h"
#include "platform/uikit/UIApplication.h"
#include "settings/appearance/Appearance.h"

/// What the command line asks for.
struct Options {
  enum class Ask { Run, Help, Version, Error };
  enum class Renderer { Software, Gpu };
  enum class Effects { Real, None };

  Ask ask = Ask::Run;
  QString message;  // the help text, or what is wrong

  QString root;
  QString bundle;
  QString pane;
  QString entryBadge;
  bool hasEntryBadge = false;
  QSize size{375, 667};
  double scale = 0;        // 0: the screen's
  double refreshRate = 0;  // 0: the screen's
  QString gif;
  QString screenshot;
  QString tour;
  Renderer renderer = Renderer::Software;
  HostMap hosts;
  bool webEngine = true;
  bool allowRoot = false;
  Effects effects = Effects::Real;  // None for pictures
  Appearance::Scheme scheme = Appearance::Scheme::System;
  Appearance::Motion motion = Appearance::Motion::System;
  Appearance::Direction direction = Appearance::Direction::System;
  UIContentSizeCategory textSize = UIContentSizeCategory::kLarge;

  bool isPicture() const { return !screenshot.isEmpty() || !tour.isEmpty(); }

  static Options parse(const QStringList& arguments);
};
