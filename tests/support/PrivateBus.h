#pragma once

#include <memory>
#include <string>

#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

/// A session bus of a test's own, which the environment of this process names.
class PrivateBus {
 public:
  PrivateBus();

  /// Ends the bus; its address stays.
  void stop();
  /// A new bus at the same address; returns when it can be connected to.
  void start();

 private:
  TemporaryFolder folder_;
  std::string address_;
  std::unique_ptr<ChildProcess> daemon_;
};

/// A process that prints the name of each notification on the bus, one a line.
class BusMonitor {
 public:
  /// Returns when it listens.
  BusMonitor();

  /// The next name; empty when none comes.
  std::string nextName();

 private:
  ChildProcess monitor_;
};
