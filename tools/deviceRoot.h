#pragma once

#include <string>

#include "linux/DevicePaths.h"

namespace CLI {
class App;
}

/// The option for another device root than the user's; the folder goes to `root`.
void addRootOption(CLI::App& app, std::string& root);

/// The paths below that folder; below the user's device root where it is empty.
DevicePaths devicePathsBelow(const std::string& root);
