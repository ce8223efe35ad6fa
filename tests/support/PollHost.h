#pragma once

#include <chrono>
#include <functional>

#include "linux/DBusNotifications.h"
#include "linux/FileDescriptor.h"

/// Runs the main queue and the notifications of a program that has no other loop. One at a time, on
/// the main thread.
class PollHost {
 public:
  /// The notifications must outlive the host.
  explicit PollHost(DBusNotifications& notifications);
  PollHost(const PollHost&) = delete;
  PollHost& operator=(const PollHost&) = delete;
  PollHost(PollHost&&) = delete;
  PollHost& operator=(PollHost&&) = delete;
  ~PollHost();

  /// Runs what is due and waits for more, until `done` says true or the time is over; `done` is
  /// asked before every wait. Whether it said true.
  bool runUntil(const std::function<bool()>& done, std::chrono::milliseconds patience);

 private:
  int timeout(std::chrono::steady_clock::time_point end) const;

  DBusNotifications& notifications_;
  FileDescriptor wake_;
};
