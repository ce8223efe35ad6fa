#pragma once

#include <string>

#include "linux/DevicePaths.h"

/// How "Call Anonymously" comes to the green button.
enum class CallMode {
  kSwipe,   ///< The green button is swiped to a side.
  kHold,    ///< It is held.
  kAlways,  ///< Both stand there.
};

/// What the settings file says of the dialler's screens; defaults for what it does not.
struct DiallerSettings {
  struct Screen {
    CallMode mode = CallMode::kAlways;
    int button = 1;  ///< The picture of the anonymous button, 1 to 4.
  };

  Screen keypad;
  Screen call;
  std::string question;           ///< Beside one button, UTF-8; empty for the usual one.
  std::string twoButtonQuestion;  ///< Beside two.
};

/// Any thread.
DiallerSettings readDiallerSettings(const DevicePaths& paths);
