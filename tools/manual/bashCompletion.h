#pragma once

#include <string>

/// A script for bash that completes the program's commands, their options and, where they are one
/// of a few, their arguments; made from what the commands say of themselves.
std::string bashCompletion();
