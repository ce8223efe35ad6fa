#pragma once

#include <memory>

#include "headless/Recorder.h"
#include "platform/services.h"

/// Another fetch service, with every fetch recorded when it has ended. Any thread.
class RecordingFetches : public FetchService {
 public:
  RecordingFetches(std::shared_ptr<FetchService> fetches, std::shared_ptr<Recorder> recorder);

  std::optional<std::string> stringWithContentsOfURL(const std::string& url) override;

 private:
  std::shared_ptr<FetchService> fetches_;
  std::shared_ptr<Recorder> recorder_;
};
