#include "linux/LowMemoryWatch.h"

#include <array>
#include <cstdlib>
#include <future>
#include <poll.h>
#include <thread>
#include <unistd.h>

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <systemd/sd-bus.h>

#include "linux/LowMemoryMonitorSignal.h"
#include "linux/MemoryPressureFile.h"
#include "linux/SystemClock.h"
#include "platform/foundation/MainQueue.h"
#include "platform/services.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace std::chrono_literals;

/// Two ends of a connection that carries urgent data, as the kernel's file reports it.
struct UrgentPair {
  UrgentPair() {
    const FileDescriptor listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* plain = reinterpret_cast<sockaddr*>(&address);
    bind(listener.get(), plain, length);
    listen(listener.get(), 1);
    getsockname(listener.get(), plain, &length);
    far = FileDescriptor(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    connect(far.get(), plain, length);
    near = FileDescriptor(accept4(listener.get(), nullptr, nullptr, SOCK_CLOEXEC));
  }

  FileDescriptor near;
  FileDescriptor far;
};

/// A source that a test sets off.
class Alarm final : public LowMemorySource {
 public:
  explicit Alarm(int descriptor) : descriptor_(descriptor) {}

  Wanted wanted() const override {
    return {.descriptor = descriptor_, .events = POLLIN, .timeout = -1};
  }
  News process(short found) override {
    eventfd_t news = 0;
    if (!(found & POLLIN) || eventfd_read(descriptor_, &news) != 0) {
      return News::kNone;
    }
    return news == kShortage ? News::kLowMemory : News::kGone;
  }

  static constexpr eventfd_t kShortage = 1;
  static constexpr eventfd_t kEnd = 2;

 private:
  int descriptor_;
};

/// What makes an alarm, and sets it off.
struct Trigger {
  LowMemoryWatch::SourceMaker maker() {
    return [this] { return std::make_unique<Alarm>(event.get()); };
  }
  void fire() { eventfd_write(event.get(), Alarm::kShortage); }
  void end() { eventfd_write(event.get(), Alarm::kEnd); }

  FileDescriptor event{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
};

/// A low-memory monitor on the bus that the environment names.
class Monitor {
 public:
  Monitor() {
    sd_bus_open_system(&bus_);
    owns_ = sd_bus_request_name(bus_, "org.freedesktop.LowMemoryMonitor", 0) >= 0;
  }
  Monitor(const Monitor&) = delete;
  Monitor& operator=(const Monitor&) = delete;
  Monitor(Monitor&&) = delete;
  Monitor& operator=(Monitor&&) = delete;
  ~Monitor() { sd_bus_flush_close_unref(bus_); }

  bool owns() const { return owns_; }
  void warn(std::uint8_t level) {
    sd_bus_emit_signal(bus_, "/org/freedesktop/LowMemoryMonitor",
                       "org.freedesktop.LowMemoryMonitor", "LowMemoryWarning", "y", level);
    sd_bus_flush(bus_);
  }

 private:
  sd_bus* bus_ = nullptr;
  bool owns_ = false;
};

class LowMemoryWatchTest : public testing::Test {
 protected:
  LowMemoryWatchTest() {
    Services services;
    services.clock = std::make_shared<SystemClock>();
    installServices(services);
    MainQueue::shared().drain();
  }

  /// Runs the main queue until that many warnings have come; false when they do not.
  bool waitForWarnings(int count) {
    const auto end = std::chrono::steady_clock::now() + 20s;
    while (warnings < count && std::chrono::steady_clock::now() < end) {
      MainQueue::shared().drain();
      std::this_thread::yield();
    }
    return warnings == count;
  }

  std::function<void()> counting() {
    return [this] {
      EXPECT_TRUE(MainQueue::shared().isCurrent());
      ++warnings;
    };
  }

  int warnings = 0;
};

TEST_F(LowMemoryWatchTest, EachShortageIsOneWarningOnTheMainQueue) {
  Trigger trigger;
  const LowMemoryWatch watch({trigger.maker()}, counting());
  trigger.fire();
  EXPECT_TRUE(waitForWarnings(1));
  trigger.fire();
  EXPECT_TRUE(waitForWarnings(2));
}

TEST_F(LowMemoryWatchTest, TheFirstSourceThatIsThereIsUsedUntilItGoes) {
  Trigger first;
  Trigger second;
  const LowMemoryWatch watch(
      {[]() -> std::unique_ptr<LowMemorySource> { return nullptr; }, first.maker(), second.maker()},
      counting());
  first.fire();
  EXPECT_TRUE(waitForWarnings(1));
  first.end();
  second.fire();
  EXPECT_TRUE(waitForWarnings(2));
}

TEST_F(LowMemoryWatchTest, AfterTheWatchHasGoneNobodyIsWarned) {
  Trigger trigger;
  auto watch = std::make_unique<LowMemoryWatch>(
      std::vector<LowMemoryWatch::SourceMaker>{trigger.maker()}, counting());
  trigger.fire();
  watch.reset();
  MainQueue::shared().drain();
  EXPECT_EQ(warnings, 0);
}

TEST_F(LowMemoryWatchTest, TheKernelTellsOfAShortageAsUrgentData) {
  UrgentPair pair;
  MemoryPressureFile file(std::move(pair.near));
  const auto wanted = file.wanted();
  pollfd descriptor{wanted.descriptor, wanted.events, 0};
  EXPECT_EQ(poll(&descriptor, 1, 0), 0);
  EXPECT_EQ(file.process(descriptor.revents), LowMemorySource::News::kNone);
  ASSERT_EQ(send(pair.far.get(), "!", 1, MSG_OOB), 1);
  EXPECT_EQ(poll(&descriptor, 1, 20'000), 1);
  EXPECT_EQ(file.process(descriptor.revents), LowMemorySource::News::kLowMemory);
}

TEST_F(LowMemoryWatchTest, AFileThatTheKernelTakesAwayIsASourceThatGoes) {
  UrgentPair pair;
  MemoryPressureFile file(std::move(pair.near));
  EXPECT_EQ(file.process(POLLERR | POLLPRI), LowMemorySource::News::kGone);
}

TEST_F(LowMemoryWatchTest, TheKernelTakesTheTriggerWhereItHasSuchAFile) {
  if (access(MemoryPressureFile::kPath, W_OK) != 0) {
    GTEST_SKIP() << "this kernel has no " << MemoryPressureFile::kPath;
  }
  EXPECT_NE(MemoryPressureFile::open(), nullptr);
}

TEST_F(LowMemoryWatchTest, WithoutAnySourceItEndsQuietly) {
  const LowMemoryWatch watch({}, counting());
  MainQueue::shared().drain();
  EXPECT_EQ(warnings, 0);
}

TEST_F(LowMemoryWatchTest, AFileThatTakesTheWholeTriggerIsASource) {
  const TemporaryFolder folder;
  writeBytes(folder / "memory", "");
  EXPECT_NE(MemoryPressureFile::open((folder / "memory").string()), nullptr);
  EXPECT_EQ(bytesOf(folder / "memory"), std::string(MemoryPressureFile::kTrigger) + '\0');
}

TEST_F(LowMemoryWatchTest, AFileThatCannotBeAskedIsNoSource) {
  const TemporaryFolder folder;
  EXPECT_EQ(MemoryPressureFile::open((folder / "none").string()), nullptr);
}

TEST_F(LowMemoryWatchTest, EveryLevelOfTheMonitorsSignalIsAWarning) {
  const PrivateBus bus;
  setenv("DBUS_SYSTEM_BUS_ADDRESS", getenv("DBUS_SESSION_BUS_ADDRESS"), 1);
  Monitor monitor;
  ASSERT_TRUE(monitor.owns());
  std::promise<void> connected;
  const LowMemoryWatch watch({[&] {
                               auto source = LowMemoryMonitorSignal::connect();
                               connected.set_value();
                               return source;
                             }},
                             counting());
  connected.get_future().wait();
  monitor.warn(50);
  EXPECT_TRUE(waitForWarnings(1));
  monitor.warn(255);
  EXPECT_TRUE(waitForWarnings(2));
}

TEST_F(LowMemoryWatchTest, TheSystemsMonitorComesBeforeTheKernelsFile) {
  const PrivateBus bus;
  setenv("DBUS_SYSTEM_BUS_ADDRESS", getenv("DBUS_SESSION_BUS_ADDRESS"), 1);
  const Monitor monitor;
  const auto sources = LowMemoryWatch::systemSources();
  ASSERT_EQ(sources.size(), 2U);
  EXPECT_NE(dynamic_cast<LowMemoryMonitorSignal*>(sources[0]().get()), nullptr);
  const auto file = sources[1]();
  EXPECT_TRUE(!file || dynamic_cast<MemoryPressureFile*>(file.get()));
}

TEST_F(LowMemoryWatchTest, ABusWithoutAMonitorIsNoSource) {
  const PrivateBus bus;
  setenv("DBUS_SYSTEM_BUS_ADDRESS", getenv("DBUS_SESSION_BUS_ADDRESS"), 1);
  EXPECT_EQ(LowMemoryMonitorSignal::connect(), nullptr);
  setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent", 1);
  EXPECT_EQ(LowMemoryMonitorSignal::connect(), nullptr);
}

TEST_F(LowMemoryWatchTest, ABusThatGoesIsASourceThatGoes) {
  PrivateBus bus;
  setenv("DBUS_SYSTEM_BUS_ADDRESS", getenv("DBUS_SESSION_BUS_ADDRESS"), 1);
  auto monitor = std::make_unique<Monitor>();
  Trigger next;
  std::promise<void> connected;
  const LowMemoryWatch watch({[&] {
                                auto source = LowMemoryMonitorSignal::connect();
                                connected.set_value();
                                return source;
                              },
                              next.maker()},
                             counting());
  connected.get_future().wait();
  bus.stop();
  next.fire();
  EXPECT_TRUE(waitForWarnings(1));
}

}  // namespace
