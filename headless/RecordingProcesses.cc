#include "headless/RecordingProcesses.h"

#include <utility>

RecordingProcesses::RecordingProcesses(std::shared_ptr<Recorder> recorder,
                                       std::shared_ptr<ProcessService> next)
    : recorder_(std::move(recorder)), next_(std::move(next)) {}

int RecordingProcesses::posixSpawn(int& pid, const std::string& path,
                                   const std::vector<std::string>& arguments,
                                   const std::vector<std::string>* environment) {
  recorder_->record(
      SpawnEvent{path, arguments, environment ? std::optional(*environment) : std::nullopt});
  if (next_) {
    return next_->posixSpawn(pid, path, arguments, environment);
  }
  pid = ++lastPid_;
  return 0;
}

int RecordingProcesses::waitpid(int pid, int& status, int options) {
  recorder_->record(WaitEvent{options});
  if (next_) {
    return next_->waitpid(pid, status, options);
  }
  status = 0;
  return pid;
}
