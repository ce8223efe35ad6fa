#pragma once

#include "platform/services.h"

/// Starting programs and waiting for them.
class PosixProcessService final : public ProcessService {
 public:
  /// What becomes of what the other program says on its standard error.
  enum class Messages { kShown, kDropped };

  explicit PosixProcessService(Messages messages = Messages::kShown) : messages_(messages) {}

  /// Of what this program has open the other gets its standard input, output and error, and no
  /// more.
  int posixSpawn(int& pid, const std::string& path, const std::vector<std::string>& arguments,
                 const std::vector<std::string>* environment) override;

  /// The device's options are 1 (do not wait) and 4 (wait for the end, as 0 does). On Linux the
  /// latter belongs to waitid(2), and waitpid(2) refuses it: it is waited for with waitid, and the
  /// status is put together as waitpid gives it. An interrupted wait goes on. -1 for other options
  /// and for anything but one child: after a failed start there is nothing to wait for.
  int waitpid(int pid, int& status, int options) override;

 private:
  Messages messages_;
};
