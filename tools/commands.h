#pragma once

#include <memory>
#include <vector>

#include "tools/Command.h"

using Commands = std::vector<std::unique_ptr<Command>>;

/// Every command of the terminal program, in the order in which they are listed.
Commands makeCommands();
