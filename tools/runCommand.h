#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tools/Command.h"

/// The parser of a command's options, which is also what its help, its manual page and its
/// completions are made from. The command outlives it.
std::shared_ptr<CLI::App> parserFor(Command& command);

/// Reads the words after the command's name and carries it out. The exit status: 0 after its help,
/// kNotUnderstood after one sentence on `streams.err`, else the command's own.
int runCommand(Command& command, const std::vector<std::string>& words, Streams streams);
