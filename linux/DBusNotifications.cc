#include "linux/DBusNotifications.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <exception>
#include <limits>
#include <utility>

#include <systemd/sd-bus.h>

#include "platform/foundation/CFNotificationCenter.h"

namespace {

constexpr const char* kPath = "/me/orlanvey/quietdial/Notifications";
constexpr const char* kInterface = "me.orlanvey.quietdial.Notifications";
constexpr const char* kSignal = "Posted";

constexpr std::chrono::milliseconds kFirstPause(250);
constexpr std::chrono::milliseconds kLongestPause(30'000);
constexpr std::chrono::seconds kPatienceAtTheEnd(5);
// What one turn of the host's loop handles at most, so that a flood of posts does not keep the host
// from everything else.
constexpr int kMostAtOnce = 64;

}  // namespace

void DBusNotifications::CloseBus::operator()(sd_bus* bus) const {
  sd_bus_close_unref(bus);
}

DBusNotifications::DBusNotifications(Delivery delivery)
    : delivery_(std::move(delivery)), pause_(kFirstPause) {
  connect();
}

std::shared_ptr<DBusNotifications> DBusNotifications::forPanes() {
  return std::make_shared<DBusNotifications>([](const std::string& name) {
    CFNotificationCenterDeliver(CFNotificationCenterGetDarwinNotifyCenter(), name);
  });
}

DBusNotifications::~DBusNotifications() {
  sendQueued();
}

void DBusNotifications::broadcast(NotificationCall /*call*/, const std::string& name) {
  // A name that could not travel would cost the connection nothing, but reach others changed.
  if (name.find('\0') != std::string::npos) {
    return;
  }
  for (int attempt = 0; attempt < 2; ++attempt) {
    if (!bus_) {
      connect();
    }
    const int result =
        bus_ ? sd_bus_emit_signal(bus_.get(), kPath, kInterface, kSignal, "s", name.c_str()) : 0;
    if (result >= 0 || result == -EINVAL) {
      hasPosted_ = true;
      break;
    }
    disconnect(-result);
  }
  if (wantedChanged_) {
    wantedChanged_();
  }
}

DBusNotifications::Wanted DBusNotifications::wanted() const {
  using std::chrono::ceil;
  using std::chrono::microseconds;
  using std::chrono::milliseconds;

  const auto bounded = [](milliseconds time) {
    return static_cast<int>(std::clamp<milliseconds::rep>(time.count(), 0, kLongestPause.count()));
  };
  Wanted wanted;
  if (!bus_) {
    wanted.timeout = bounded(ceil<milliseconds>(nextAttempt_ - Clock::now()));
    return wanted;
  }
  wanted.descriptor = sd_bus_get_fd(bus_.get());
  wanted.events = static_cast<short>(std::max(sd_bus_get_events(bus_.get()), 0));
  std::uint64_t due = std::numeric_limits<std::uint64_t>::max();
  if (sd_bus_get_timeout(bus_.get(), &due) < 0) {
    wanted.timeout = 0;  // the connection has failed; process() sees to it
  } else if (due != std::numeric_limits<std::uint64_t>::max()) {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const auto passed = std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
    wanted.timeout = bounded(ceil<milliseconds>(microseconds(due) - passed));
  }
  return wanted;
}

void DBusNotifications::process() {
  if (!bus_) {
    if (Clock::now() >= nextAttempt_) {
      connect();
    }
    return;
  }
  for (int handled = 0; handled < kMostAtOnce; ++handled) {
    const int result = sd_bus_process(bus_.get(), nullptr);
    if (result < 0) {
      disconnect(-result);
      return;
    }
    if (result == 0 || !bus_) {
      return;
    }
  }
}

void DBusNotifications::setWantedChangedHook(std::function<void()> hook) {
  wantedChanged_ = std::move(hook);
}

void DBusNotifications::connect() {
  sd_bus* bus = nullptr;
  int result = sd_bus_open_user(&bus);
  if (result < 0) {
    disconnect(-result);
    return;
  }
  bus_.reset(bus);
  state_ = State::kJoining;
  const auto receive = [](sd_bus_message* message, void* self, sd_bus_error* error) noexcept {
    return received(message, self, error);
  };
  const auto installed = [](sd_bus_message* reply, void* self, sd_bus_error* error) noexcept {
    return matchInstalled(reply, self, error);
  };
  result = sd_bus_match_signal_async(bus, nullptr, nullptr, kPath, kInterface, kSignal, receive,
                                     installed, this);
  if (result < 0) {
    disconnect(-result);
  }
}

void DBusNotifications::disconnect(int error) {
  bus_.reset();
  state_ = State::kWithoutBus;
  nextAttempt_ = Clock::now() + pause_;
  pause_ = std::min(pause_ * 2, kLongestPause);
  if (!std::exchange(saidSo_, true)) {
    std::fprintf(stderr,
                 "quietdial: no session bus (%s): notifications stay inside this process until "
                 "there is one\n",
                 std::strerror(error));
  }
}

int DBusNotifications::received(sd_bus_message* message, void* self, void* /*error*/) noexcept {
  const auto& notifications = *static_cast<DBusNotifications*>(self);
  // The observers of this process were told when it posted; the bus's echo is not a second post.
  const char* own = nullptr;
  const char* sender = sd_bus_message_get_sender(message);
  if (sender && sd_bus_get_unique_name(notifications.bus_.get(), &own) >= 0 &&
      std::strcmp(sender, own) == 0) {
    return 0;
  }
  const char* name = nullptr;
  if (sd_bus_message_read(message, "s", &name) <= 0) {
    return 0;
  }
  // The caller is C and knows nothing of exceptions.
  try {
    notifications.delivery_(name);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quietdial: a notification was not delivered: %s\n", error.what());
  } catch (...) {
    std::fputs("quietdial: a notification was not delivered\n", stderr);
  }
  return 0;
}

int DBusNotifications::matchInstalled(sd_bus_message* reply, void* self, void* /*error*/) noexcept {
  auto& notifications = *static_cast<DBusNotifications*>(self);
  if (sd_bus_message_is_method_error(reply, nullptr) > 0) {
    return -ECONNABORTED;
  }
  notifications.state_ = State::kListening;
  notifications.pause_ = kFirstPause;
  return 0;
}

void DBusNotifications::sendQueued() {
  if (!hasPosted_) {
    return;
  }
  const auto deadline = Clock::now() + kPatienceAtTheEnd;
  const auto left = [deadline] {
    const auto time = std::chrono::ceil<std::chrono::microseconds>(deadline - Clock::now());
    return static_cast<std::uint64_t>(std::max<std::chrono::microseconds::rep>(time.count(), 1));
  };
  std::uint64_t queued = 0;
  while (bus_ && sd_bus_get_n_queued_write(bus_.get(), &queued) >= 0 && queued > 0) {
    if (Clock::now() >= deadline || sd_bus_process(bus_.get(), nullptr) < 0 ||
        sd_bus_wait(bus_.get(), left()) < 0) {
      return;
    }
  }
  if (!bus_) {
    return;
  }
  // A socket that is closed before its answers are read takes what the bus has not read yet with
  // it: hence a question whose answer comes after everything that was posted.
  sd_bus_message* question = nullptr;
  if (sd_bus_message_new_method_call(bus_.get(), &question, "org.freedesktop.DBus",
                                     "/org/freedesktop/DBus", "org.freedesktop.DBus.Peer",
                                     "Ping") >= 0) {
    sd_bus_call(bus_.get(), question, left(), nullptr, nullptr);
    sd_bus_message_unref(question);
  }
}
