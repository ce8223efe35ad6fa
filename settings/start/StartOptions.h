#pragma once

#include <QSize>
#include <string>

#include "linux/HostMap.h"
#include "platform/uikit/UIApplication.h"
#include "settings/appearance/Appearance.h"

namespace CLI {
class App;
}

/// What any program with a window can be told about how it comes up.
struct StartOptions {
  enum class Renderer { kSoftware, kGPU };

  std::string root;  // empty for the program's own
  QSize size{375, 667};
  double scale = 0;        // 0: the screen's
  double refreshRate = 0;  // 0: the screen's
  Renderer renderer = Renderer::kSoftware;
  HostMap hosts;
  bool webEngine = true;
  bool allowRoot = false;
  Appearance::Scheme scheme = Appearance::Scheme::kSystem;
  Appearance::Motion motion = Appearance::Motion::kSystem;
  Appearance::Direction direction = Appearance::Direction::kSystem;
  UIContentSizeCategory textSize = UIContentSizeCategory::kLarge;
  /// Only pictures are made: nothing moves, and all is the same on every desktop.
  bool isPicture = false;

  /// Lets the user choose, by options of the command line. This object outlives the parsing.
  void addTo(CLI::App& app);
  /// What only a program with a window on the screen leaves to the user.
  void addLookTo(CLI::App& app);
};
