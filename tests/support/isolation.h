#pragma once

/// For programs that use the real killall, which reaches every process of its name: starts this one
/// again through the program that keeps the two apart. Call it first in main, with what main was
/// given; it returns only where that has happened already, and ends the program where it cannot be
/// done.
void isolate(char** arguments);
