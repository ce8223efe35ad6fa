#pragma once

#include <memory>
#include <set>
#include <string>

#include "headless/Recorder.h"
#include "platform/services.h"

/// Records which addresses are asked about and opened, and hands openings on where there is
/// somebody to hand them to. What can be opened is given, so that answers never depend on the
/// machine.
class RecordingAddresses : public AddressOpener {
 public:
  /// `schemes` have a handler; `next` may be null.
  RecordingAddresses(std::shared_ptr<Recorder> recorder, std::set<std::string> schemes,
                     std::shared_ptr<AddressOpener> next);

  void addScheme(const std::string& scheme) { schemes_.insert(scheme); }
  bool canOpen(const std::string& url) override;
  void open(const std::string& url) override;

 private:
  std::shared_ptr<Recorder> recorder_;
  std::set<std::string> schemes_;
  std::shared_ptr<AddressOpener> next_;
};
