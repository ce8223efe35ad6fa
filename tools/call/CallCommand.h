#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

/// `quietdial call`: plans a call that asks for the number to be hidden, tells it, and places it
/// once that is confirmed. docs/calling.md describes it.
///
/// The exit status: 0 placed, handed over or told; 2 arguments that are not understood, or nobody
/// to ask; 3 refused by a rule, or by the user; 4 no line; 5 the line failed; 6 not known.
int runCallCommand(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
                   std::ostream& err);
