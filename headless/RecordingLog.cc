#include "headless/RecordingLog.h"

#include <utility>

RecordingLog::RecordingLog(std::shared_ptr<Recorder> recorder, std::shared_ptr<SystemLog> next)
    : recorder_(std::move(recorder)), next_(std::move(next)) {}

void RecordingLog::write(const std::string& line) {
  recorder_->record(LogEvent{line});
  if (next_) {
    next_->write(line);
  }
}
