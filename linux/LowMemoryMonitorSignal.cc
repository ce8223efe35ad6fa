#include "linux/LowMemoryMonitorSignal.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ctime>
#include <limits>
#include <utility>

#include <systemd/sd-bus.h>

namespace {

constexpr const char* kName = "org.freedesktop.LowMemoryMonitor";
constexpr const char* kPath = "/org/freedesktop/LowMemoryMonitor";
constexpr const char* kSignal = "LowMemoryWarning";

constexpr const char* kBusName = "org.freedesktop.DBus";
constexpr const char* kBusPath = "/org/freedesktop/DBus";

// In microseconds; a program that ends waits for the bus no longer than this.
constexpr std::uint64_t kPatience = 2'000'000;

bool isRunning(sd_bus& bus) {
  sd_bus_message* reply = nullptr;
  int owned = 0;
  if (sd_bus_call_method(&bus, kBusName, kBusPath, kBusName, "NameHasOwner", nullptr, &reply, "s",
                         kName) >= 0) {
    sd_bus_message_read(reply, "b", &owned);
  }
  sd_bus_message_unref(reply);
  return owned != 0;
}

// Starts the monitor where it is not running yet. False where nobody answers for its name.
bool hasMonitor(sd_bus& bus) {
  constexpr std::uint32_t kNoFlags = 0;
  return isRunning(bus) ||
         sd_bus_call_method(&bus, kBusName, kBusPath, kBusName, "StartServiceByName", nullptr,
                            nullptr, "su", kName, kNoFlags) >= 0;
}

}  // namespace

void LowMemoryMonitorSignal::CloseBus::operator()(sd_bus* bus) const {
  sd_bus_close_unref(bus);
}

std::unique_ptr<LowMemorySource> LowMemoryMonitorSignal::connect() {
  sd_bus* bus = nullptr;
  if (sd_bus_open_system(&bus) < 0) {
    return nullptr;
  }
  std::unique_ptr<LowMemoryMonitorSignal> source(new LowMemoryMonitorSignal(bus));
  const auto receive = [](sd_bus_message* /*message*/, void* self,
                          sd_bus_error* /*error*/) noexcept {
    static_cast<LowMemoryMonitorSignal*>(self)->warned_ = true;
    return 0;
  };
  sd_bus_set_method_call_timeout(bus, kPatience);
  if (!hasMonitor(*bus) ||
      sd_bus_match_signal(bus, nullptr, kName, kPath, kName, kSignal, receive, source.get()) < 0) {
    return nullptr;
  }
  return source;
}

LowMemorySource::Wanted LowMemoryMonitorSignal::wanted() const {
  Wanted wanted{.descriptor = sd_bus_get_fd(bus_.get()),
                .events = static_cast<short>(std::max(sd_bus_get_events(bus_.get()), 0)),
                .timeout = -1};
  std::uint64_t due = std::numeric_limits<std::uint64_t>::max();
  if (sd_bus_get_timeout(bus_.get(), &due) < 0 || due == 0) {
    wanted.timeout = 0;
  }
  return wanted;
}

LowMemorySource::News LowMemoryMonitorSignal::process(short /*found*/) {
  int result = 0;
  do {
    result = sd_bus_process(bus_.get(), nullptr);
  } while (result > 0);
  if (result < 0) {
    return News::kGone;
  }
  return std::exchange(warned_, false) ? News::kLowMemory : News::kNone;
}
