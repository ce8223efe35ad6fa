#pragma once

#include <optional>
#include <string>

/// The user's own folder: $HOME where that is an absolute path, else the one that the account has.
/// Nothing for someone without an account. Any thread.
std::optional<std::string> homeFolder();
