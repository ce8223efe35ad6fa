#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/services.h"

struct sd_bus;
struct sd_bus_message;

/// Darwin notifications between processes, as a signal on the session bus; docs/notifications.md
/// describes it for other programs.
///
/// Without a bus, notifications stay inside the process; that is said once on standard error. A bus
/// that is not there, or goes away, is tried again from time to time and at every post; what is
/// posted meanwhile reaches nobody else. Main thread only; the host's loop drives it:
///
///     wait until poll() reports wanted().events on wanted().descriptor, or wanted().timeout
///     passes; call process(); ask wanted() again, as also after every broadcast().
class DBusNotifications final : public NotificationBroadcaster {
 public:
  /// Called from process() for each notification that another process has posted. What it throws
  /// ends that delivery alone, and is said on standard error.
  using Delivery = std::function<void(const std::string& name)>;

  /// What the host waits for; the values as poll(2) has them.
  struct Wanted {
    int descriptor = -1;  ///< -1 while there is no connection; it differs from one to the next.
    short events = 0;
    int timeout = -1;  ///< In milliseconds; -1 for ever.
  };

  enum class State {
    kWithoutBus,
    kJoining,    ///< Connected; posts go out, but not all that others post comes in yet.
    kListening,  ///< What any process posts from now on is delivered.
  };

  explicit DBusNotifications(Delivery delivery);
  /// For programs with panes: what others post is delivered to this process's Darwin notification
  /// centre.
  static std::shared_ptr<DBusNotifications> forPanes();
  DBusNotifications(const DBusNotifications&) = delete;
  DBusNotifications& operator=(const DBusNotifications&) = delete;
  DBusNotifications(DBusNotifications&&) = delete;
  DBusNotifications& operator=(DBusNotifications&&) = delete;
  /// Sends what is still queued and waits until the bus has it, for five seconds at most.
  ~DBusNotifications() override;

  /// Never waits for the bus.
  void broadcast(NotificationCall call, const std::string& name) override;

  Wanted wanted() const;

  /// Sends, receives and delivers what can be without waiting. Delivery may broadcast.
  void process();

  /// Called after each broadcast, for a host that has to be told to ask wanted() again.
  void setWantedChangedHook(std::function<void()> hook);

  State state() const { return state_; }

 private:
  using Clock = std::chrono::steady_clock;
  struct CloseBus {
    void operator()(sd_bus* bus) const;
  };

  // Called by the bus, which is written in C.
  static int received(sd_bus_message* message, void* self, void* error) noexcept;
  static int matchInstalled(sd_bus_message* reply, void* self, void* error) noexcept;

  void connect();
  void disconnect(int error);
  void sendQueued();

  Delivery delivery_;
  std::function<void()> wantedChanged_;
  std::unique_ptr<sd_bus, CloseBus> bus_;
  State state_ = State::kWithoutBus;
  Clock::time_point nextAttempt_;
  std::chrono::milliseconds pause_;
  bool hasPosted_ = false;
  bool saidSo_ = false;
};
