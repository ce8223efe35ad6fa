#pragma once

#include <memory>

#include "headless/Recorder.h"
#include "platform/services.h"

/// Records what is logged, and hands it on where there is somebody to hand it to.
class RecordingLog : public SystemLog {
 public:
  /// `next` may be null.
  RecordingLog(std::shared_ptr<Recorder> recorder, std::shared_ptr<SystemLog> next);

  void write(const std::string& line) override;

 private:
  std::shared_ptr<Recorder> recorder_;
  std::shared_ptr<SystemLog> next_;
};
