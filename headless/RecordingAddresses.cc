#include "headless/RecordingAddresses.h"

#include <utility>

RecordingAddresses::RecordingAddresses(std::shared_ptr<Recorder> recorder,
                                       std::set<std::string> schemes,
                                       std::shared_ptr<AddressOpener> next)
    : recorder_(std::move(recorder)), schemes_(std::move(schemes)), next_(std::move(next)) {}

bool RecordingAddresses::canOpen(const std::string& url) {
  const bool answer = schemes_.contains(url.substr(0, url.find(':')));
  recorder_->record(CanOpenEvent{url, answer});
  return answer;
}

void RecordingAddresses::open(const std::string& url) {
  recorder_->record(OpenEvent{url});
  if (next_) {
    next_->open(url);
  }
}
