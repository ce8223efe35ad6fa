#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The path of a program, looked up in the $PATH that this program was started with and then in
/// `furtherFolders`, joined by ":". Elements that are no absolute path are passed over: they would
/// lead to whatever folder this program was started in. Nothing where there is none. Any thread.
std::optional<std::string> findProgram(std::string_view name, std::string_view furtherFolders = {});
