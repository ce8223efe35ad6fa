#pragma once

#include <chrono>
#include <string>
#include <system_error>

#include "linux/FileDescriptor.h"

/// A lock that the programs of one user hold one after the other. It is a file, which stays; what
/// locks is held by the process and ends with it, however it ends. Nobody else may open the file,
/// and one that others could have laid there is not used. Any thread.
class FileLock {
 public:
  /// Makes the file, with its folders, and waits for the lock as long as that.
  FileLock(const std::string& path, std::chrono::milliseconds patience);

  /// No error while the lock is held; std::errc::timed_out where another process holds it.
  std::error_code error() const { return error_; }

 private:
  std::error_code take(const std::string& path, std::chrono::milliseconds patience);

  FileDescriptor file_;
  std::error_code error_;
};
