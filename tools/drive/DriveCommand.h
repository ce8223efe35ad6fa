#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

/// `quietdial drive`: reads a request a line, writes a reply a line, in step. The exit status: 0 at
/// the end of the input or after `quit`, 2 for arguments that cannot be used, 1 when the panes
/// cannot be loaded; in both cases one line on `err` says why.
int runDriveCommand(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                    std::ostream& err);
