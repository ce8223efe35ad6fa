#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Programs of the desktop, looked up by `findProgram` and run with the environment that this
/// program was started with, in a session of their own, without its input and whatever else it has
/// open but its standard error. Any thread. A program named by an absolute path is run as it is.

/// What the program prints, up to `longest` bytes; nothing when it cannot be started, fails, or has
/// not ended in time. It is killed then.
std::optional<std::string> outputOfDesktopProgram(const std::vector<std::string>& arguments,
                                                  std::chrono::milliseconds patience,
                                                  std::size_t longest);

/// Runs the program with `input` to read and waits for its end. True when it could be started, has
/// ended in time and reported success. It is killed when time runs out.
bool feedDesktopProgram(const std::vector<std::string>& arguments, std::string_view input,
                        std::chrono::milliseconds patience);

/// Starts the program and gives it that long to fail. False when it cannot be started or has ended
/// without success by then; a program that is still running is left alone and outlives this one.
bool launchDesktopProgram(const std::vector<std::string>& arguments,
                          std::chrono::milliseconds patience);

/// Starts the program and leaves it alone; its end is collected in the background. False when it
/// cannot be started.
bool startDesktopProgram(const std::vector<std::string>& arguments);
