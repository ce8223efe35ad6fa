#pragma once

#include <string>
#include <system_error>

#include "linux/FileDescriptor.h"

/// Tells when a file is put into a folder, or changed there, by whomever. One thread.
class FolderWatch {
 public:
  /// Watches from now on; `error()` says why not.
  explicit FolderWatch(const std::string& folder);

  std::error_code error() const { return error_; }

  /// Waits until something has happened in the folder since the last call. False when it cannot be
  /// watched any longer, as when it is gone.
  bool wait();

 private:
  FileDescriptor watch_;
  std::error_code error_;
};
