#pragma once

/// Runs the main queue until nothing is due at the clock's time, lets the background queues finish,
/// and so on until all of them are empty. Main thread, not from within a task.
void drainAllQueues();
