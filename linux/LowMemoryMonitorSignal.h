#pragma once

#include <memory>

#include "linux/LowMemorySource.h"

struct sd_bus;
struct sd_bus_message;

/// The LowMemoryWarning signal of org.freedesktop.LowMemoryMonitor on the system bus, whatever its
/// level: each asks programs to free what they can do without.
class LowMemoryMonitorSignal final : public LowMemorySource {
 public:
  /// Null where there is no system bus, or nobody on it who would send the signal; waits for the
  /// bus's answers.
  static std::unique_ptr<LowMemorySource> connect();

  Wanted wanted() const override;
  News process(short found) override;

 private:
  struct CloseBus {
    void operator()(sd_bus* bus) const;
  };

  explicit LowMemoryMonitorSignal(sd_bus* bus) : bus_(bus) {}

  std::unique_ptr<sd_bus, CloseBus> bus_;
  bool warned_ = false;
};
