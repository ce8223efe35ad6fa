#pragma once

#include <string>
#include <vector>

#include "platform/api.h"

namespace libsystem {

/// The device's bit for "wait until the process has ended".
inline constexpr int kWaitExited = 4;

/// Starts a program without file actions or attributes. A null environment is an empty one.
/// Returns 0 and sets `pid`, or returns an error number and leaves `pid` as it was. Main thread.
PLATFORM_API int posix_spawn(int& pid, const std::string& path,
                             const std::vector<std::string>& arguments,
                             const std::vector<std::string>* environment);

/// Waits for that process, with the device's options. Returns its identifier, or -1. Main thread.
PLATFORM_API int waitpid(int pid, int& status, int options);

}  // namespace libsystem
