#pragma once

#include <ostream>
#include <string>
#include <vector>

/// `quietdial lines`: what can place calls here, which of it hides the number by itself, and which
/// a call would take; as one JSON array with `--json`. The exit status: 0, or 2 for arguments that
/// are not understood.
int runLinesCommand(const std::vector<std::string>& arguments, std::ostream& out,
                    std::ostream& err);
