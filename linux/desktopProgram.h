#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// Programs of the desktop, looked up in $PATH and run with this program's environment in a session
/// of their own, without its input. Any thread.

/// What the program prints, up to `longest` bytes; nothing when it cannot be started, fails, or has
/// not ended in time. It is killed then.
std::optional<std::string> outputOfDesktopProgram(const std::vector<std::string>& arguments,
                                                  std::chrono::milliseconds patience,
                                                  std::size_t longest);

/// Starts the program and leaves it alone; its end is collected in the background. False when it
/// cannot be started.
bool startDesktopProgram(const std::vector<std::string>& arguments);
