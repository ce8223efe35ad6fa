#pragma once

/// For programs that use the real killall, which reaches every process of its name: they run in a
/// process namespace of their own, below a first process that collects what is orphaned. Call it
/// first in main; it returns inside the namespace only, and ends the program where the machine
/// allows none.
void enterProcessNamespace(char** arguments);
