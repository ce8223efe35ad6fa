#pragma once

#include <cstddef>
#include <istream>
#include <optional>
#include <string>

/// One line of the input, without its end; nothing where it is longer than `longest` bytes.
std::optional<std::string> readLine(std::istream& in, std::size_t longest);
