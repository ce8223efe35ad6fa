#pragma once

#include <memory>

#include "headless/Recorder.h"
#include "platform/services.h"

/// Records what is started and waited for, and hands it on where there is somebody to hand it to.
/// Without one every start succeeds and every wait answers at once.
class RecordingProcesses : public ProcessService {
 public:
  /// `next` may be null.
  RecordingProcesses(std::shared_ptr<Recorder> recorder, std::shared_ptr<ProcessService> next);

  int posixSpawn(int& pid, const std::string& path, const std::vector<std::string>& arguments,
                 const std::vector<std::string>* environment) override;
  int waitpid(int pid, int& status, int options) override;

 private:
  std::shared_ptr<Recorder> recorder_;
  std::shared_ptr<ProcessService> next_;
  int lastPid_ = 0;
};
