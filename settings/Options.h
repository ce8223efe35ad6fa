#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <string>

#include "linux/HostMap.h"

/// What the command line asks for.
struct Options {
  enum class Ask { Run, Help, Version, Error };
  enum class Renderer { Software, Gpu };

  Ask ask = Ask::Run;
  QString message;  // the help text, or what is wrong

  QString root;
  QString bundle;
  QString pane;
  QString entryBadge;
  bool hasEntryBadge = false;
  QSize size{375, 667};
  double scale = 0;  // 0: the screen's
  QString screenshot;
  QString tour;
  Renderer renderer = Renderer::Software;
  HostMap hosts;
  bool webEngine = true;

  bool isPicture() const { return !screenshot.isEmpty() || !tour.isEmpty(); }

  static Options parse(const QStringList& arguments);
};
