#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "tools/Command.h"

/// How texts stand out on a terminal; where the output is none, they do not.
std::string bold(const std::string& text, const Streams& streams);
std::string warningColour(const std::string& text, const Streams& streams);

/// The text with what a terminal would obey written out.
std::string onTerminal(std::string_view text);

/// How many columns a text takes, for texts of one column a character.
std::size_t widthOf(std::string_view text);
