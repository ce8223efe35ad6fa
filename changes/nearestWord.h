#pragma once

#include <span>
#include <string>
#include <string_view>

/// The word that a mistyped one was probably meant to be: the one with the fewest letters left out,
/// added, changed or exchanged with their neighbour, without regard to case. Empty where none is
/// near. Any thread.
std::string nearestWord(std::string_view typed, std::span<const std::string> words);
