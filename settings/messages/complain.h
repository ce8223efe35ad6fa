#pragma once

#include <string>

/// Tells the user one line on standard error, after the program's name. Any thread.
void complain(const std::string& line);
