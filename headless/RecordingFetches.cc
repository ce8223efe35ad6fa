#include "headless/RecordingFetches.h"

#include <utility>

RecordingFetches::RecordingFetches(std::shared_ptr<FetchService> fetches,
                                   std::shared_ptr<Recorder> recorder)
    : fetches_(std::move(fetches)), recorder_(std::move(recorder)) {}

std::optional<std::string> RecordingFetches::stringWithContentsOfURL(const std::string& url) {
  auto text = fetches_->stringWithContentsOfURL(url);
  recorder_->record(FetchEvent{url, text.has_value()});
  return text;
}
