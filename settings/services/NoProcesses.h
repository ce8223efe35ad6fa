#pragma once

#include <string>
#include <vector>

#include "platform/services.h"

/// No program is started: each start succeeds and each wait is over at once.
class NoProcesses final : public ProcessService {
 public:
  int posixSpawn(int& pid, const std::string& /*path*/,
                 const std::vector<std::string>& /*arguments*/,
                 const std::vector<std::string>* /*environment*/) override {
    pid = ++lastPid_;
    return 0;
  }
  int waitpid(int pid, int& status, int /*options*/) override {
    status = 0;
    return pid;
  }

 private:
  int lastPid_ = 0;
};
