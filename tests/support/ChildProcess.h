#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "linux/FileDescriptor.h"

/// A program started by a test, with its standard output in a pipe. Killed and collected at the
/// end.
class ChildProcess {
 public:
  /// The program is looked up in $PATH. Throws where it cannot be started.
  explicit ChildProcess(const std::vector<std::string>& arguments);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ChildProcess(ChildProcess&&) = delete;
  ChildProcess& operator=(ChildProcess&&) = delete;
  ~ChildProcess();

  pid_t pid() const { return pid_; }

  /// The next line of its output, without the line feed; nothing when none comes in time or the
  /// output has ended.
  std::optional<std::string> readLine(
      std::chrono::milliseconds patience = std::chrono::seconds(20));

  /// Sends the signal and waits for the end. The wait status.
  int end(int signal);

 private:
  pid_t pid_ = -1;
  FileDescriptor output_;
  std::string pending_;
};
