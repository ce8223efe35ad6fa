#include "tests/support/PrivateBus.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>

PrivateBus::PrivateBus() : address_("unix:path=" + (folder_ / "bus").string()) {
  setenv("DBUS_SESSION_BUS_ADDRESS", address_.c_str(), 1);
  start();
}

void PrivateBus::stop() {
  daemon_.reset();
}

void PrivateBus::start() {
  std::error_code ignored;
  std::filesystem::remove(folder_ / "bus", ignored);
  daemon_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"dbus-daemon", "--session", "--nofork", "--nopidfile", "--nosyslog",
                               "--address=" + address_, "--print-address"});
  if (!daemon_->readLine()) {
    throw std::runtime_error("the private bus does not start");
  }
}

BusMonitor::BusMonitor()
    : monitor_({"dbus-monitor", "--session",
                "type='signal',interface='me.orlanvey.quietdial.Notifications'"}) {
  // It becomes a monitor, and loses its name, before anything else can reach it.
  while (const auto line = monitor_.readLine()) {
    if (line->find("member=NameLost") != std::string::npos) {
      monitor_.readLine();
      return;
    }
  }
  throw std::runtime_error("the monitor does not start");
}

std::string BusMonitor::nextName() {
  while (const auto line = monitor_.readLine()) {
    const auto open = line->find("   string \"");
    if (open == 0) {
      return line->substr(11, line->size() - 12);
    }
  }
  return {};
}
