#pragma once

#include <string>

#include "tools/Command.h"

/// Manual pages (man(7)), made from what the program says of itself.

/// quietdial(1): the commands.
std::string programPage();

/// quietdial-COMMAND(1): its examples, arguments and options.
std::string commandPage(Command& command);

/// quietdial-settings-file(5): the keys, their values and defaults.
std::string settingsFilePage();
