#pragma once

/// Waits until the last call that any program of this user has placed is a second ago, and takes
/// note of this one. Only the moment is noted, in $XDG_RUNTIME_DIR; where there is no such folder,
/// only this process's own calls count. Any thread.
void waitForCallPause();
