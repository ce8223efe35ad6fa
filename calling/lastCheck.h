#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

/// What is about to go to a line, looked at once more.
struct LastCheck {
  std::string_view dial;
  bool isAnonymous = true;  ///< Asked for so by the user.
  bool lineHides = false;   ///< The line is told to hide the number.
  std::string_view prefix;  ///< The one that the settings hold, without blanks at its ends.
  std::span<const std::string> knownPrefixes;
  /// Whether exactly these digits are an emergency number.
  std::function<bool(std::string_view)> isEmergency;
};

/// Whether it may go: it is `0-9*#` with at most one `+`; an emergency number has nothing in front
/// and no wish with it, and no prefix makes one; an anonymous call asks for the number to be
/// hidden, and its prefix makes no longer code that is known. Shares no code with what builds the
/// text, on purpose: it is there to notice that going wrong.
bool passesLastCheck(const LastCheck& check);
