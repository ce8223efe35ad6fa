#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#include <benchmark/benchmark.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include "linux/DBusNotifications.h"
#include "linux/DeviceFileService.h"
#include "linux/PosixProcessService.h"
#include "linux/SystemClock.h"
#include "platform/foundation/MainQueue.h"
#include "platform/foundation/NSBundle.h"
#include "prefix/QDCountryPrefixController.h"
#include "root/QDPreferencesListController.h"
#include "tests/support/PaneTest.h"
#include "tests/support/PollHost.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/isolation.h"

// How long it takes until another process hears that a setting is in force, beside the killing
// itself. It goes where its killall reaches nothing else, and starts a bus of its own:
//   QUIETDIAL_BENCH_DIR=DIR QUIETDIAL_BENCH_PROCESSES=N build/bench/apply_bench
//     --benchmark_enable_random_interleaving=true --benchmark_repetitions=9
// DIR is on the disk that matters; N idle processes are there for killall to look at (100).

extern "C" const ClassTable quietDialPreferencesClasses;

namespace {

constexpr const char* kApplied = "me.orlanvey.quietdial/prefsChanged";
constexpr int kWaitExited = 4;

// The other process: writes one byte to its pipe for each time that it hears of settings in force,
// and one when it listens.
class Listener {
 public:
  Listener() {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) {
      std::abort();
    }
    heard_ = ends[0];
    if (fork() == 0) {
      listen(ends[1]);
    }
    close(ends[1]);
    wait(1);
  }

  void wait(int times) const {
    for (char byte = 0; times > 0; --times) {
      if (read(heard_, &byte, 1) != 1) {
        std::abort();
      }
    }
  }

 private:
  [[noreturn]] static void listen(int pipe) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const auto tell = [pipe] {
      const char byte = 1;
      if (write(pipe, &byte, 1) != 1) {
        _exit(1);
      }
    };
    DBusNotifications notifications([&](const std::string& name) {
      if (name == kApplied) {
        tell();
      }
    });
    PollHost host(notifications);
    host.runUntil([&] { return notifications.state() == DBusNotifications::State::kListening; },
                  std::chrono::minutes(1));
    tell();
    while (true) {
      host.runUntil([] { return false; }, std::chrono::minutes(1));
    }
  }

  int heard_ = -1;
};

void startIdleProcesses() {
  const char* given = std::getenv("QUIETDIAL_BENCH_PROCESSES");
  for (int left = given ? std::atoi(given) : 100; left > 0; --left) {
    if (fork() == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      while (true) {
        pause();
      }
    }
  }
}

// The panes, with the services that matter here real.
class Panes : public PaneTest {
 public:
  Panes() {
    const char* given = std::getenv("QUIETDIAL_BENCH_DIR");
    const auto folder =
        (given ? std::filesystem::path(given) : std::filesystem::temp_directory_path()) /
        "quietdial-bench";
    auto real = services();
    real.clock = std::make_shared<SystemClock>();
    real.files =
        std::make_shared<DeviceFileService>(std::make_shared<DevicePaths>(folder, "/nowhere"));
    real.notifications = notifications;
    real.processes = std::make_shared<PosixProcessService>();
    installServices(real);
    NSBundle::load(kBundle, quietDialPreferencesClasses);
    root = allocInit<QDPreferencesListController>();
    prefixes = open<QDCountryPrefixController>();
    settle();
    PollHost(*notifications)
        .runUntil([this] { return notifications->state() == DBusNotifications::State::kListening; },
                  std::chrono::minutes(1));
  }

  std::shared_ptr<DBusNotifications> notifications = DBusNotifications::forPanes();
  std::shared_ptr<QDPreferencesListController> root;
  std::shared_ptr<QDCountryPrefixController> prefixes;

 private:
  void TestBody() override {}
};

Panes* panes = nullptr;
const Listener* listener = nullptr;

// Nothing of these names runs, so that each round meets the same processes.
void KillallAlone(benchmark::State& state) {
  PosixProcessService processes;
  const std::vector<std::string> arguments{"killall", "-9", "MobilePhone", "InCallService"};
  for (auto _ : state) {
    for (std::int64_t time = 0; time < state.range(0); ++time) {
      int pid = -1;
      int status = 0;
      processes.posixSpawn(pid, "/usr/bin/killall", arguments, nullptr);
      processes.waitpid(pid, status, kWaitExited);
    }
  }
}
BENCHMARK(KillallAlone)->Arg(1)->Arg(2)->UseRealTime();

// The row that applies the settings: one killing, nothing written.
void RowActionToNotification(benchmark::State& state) {
  for (auto _ : state) {
    panes->root->applyChangedSettings();
    listener->wait(1);
    panes->notifications->process();
  }
}
BENCHMARK(RowActionToNotification)->UseRealTime();

// One tap on a country: two writes, two killings; until the second of them is heard of.
void TapToSecondNotification(benchmark::State& state) {
  const std::array rows{panes->prefixes->specifierForID("Canada"),
                        panes->prefixes->specifierForID("Algeria")};
  std::size_t tap = 0;
  for (auto _ : state) {
    panes->prefixes->selectSpecifier(rows[++tap % rows.size()]);
    MainQueue::shared().drain();
    listener->wait(2);
    panes->notifications->process();
  }
}
BENCHMARK(TapToSecondNotification)->UseRealTime();

}  // namespace

int main(int count, char** arguments) {
  isolate(arguments);
  // killall says each time that it has found none of its names.
  if (!std::freopen("/dev/null", "w", stderr)) {
    return 1;
  }
  const PrivateBus bus;
  startIdleProcesses();
  const Listener other;
  Panes opened;
  listener = &other;
  panes = &opened;
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
