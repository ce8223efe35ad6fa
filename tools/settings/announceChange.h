#pragma once

/// Tells other programs that the settings were written, as a pane's write does, and applies them
/// once: the dialler's processes restart, and its extension is told. Returns when the bus has what
/// was posted. Main thread.
void announceChange();

/// Only applies them, as the row of the first page does. Main thread.
void applyAgain();
