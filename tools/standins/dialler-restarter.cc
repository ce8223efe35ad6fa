#include <array>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <sys/wait.h>

#include "linux/DevicePaths.h"

// Keeps the dialler's two processes alive, as the phone's system does: each is started anew as soon
// as it has ended, until a signal ends this program, and the two with it.

namespace {

constexpr int kNotUnderstood = 2;

struct Process {
  const char* name;
  pid_t pid = -1;
};

sigset_t handledSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGCHLD, SIGTERM, SIGINT, SIGHUP}) {
    sigaddset(&signals, signal);
  }
  return signals;
}

bool start(Process& process, const std::filesystem::path& folder, std::string root) {
  auto path = (folder / process.name).string();
  auto self = std::to_string(getpid());
  std::array<char*, 4> arguments{path.data(), root.data(), self.data(), nullptr};

  // The child waits for no signal in a descriptor, so it must not have them blocked.
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t none;
  sigemptyset(&none);
  posix_spawnattr_setsigmask(&attributes, &none);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
  const int error =
      posix_spawn(&process.pid, path.c_str(), nullptr, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  if (error != 0) {
    std::fprintf(stderr, "dialler-restarter: cannot start %s: %s\n", path.c_str(),
                 std::strerror(error));
    process.pid = -1;
  }
  return error == 0;
}

}  // namespace

int main(int count, char** arguments) {
  std::string root = DevicePaths::defaultRoot();
  CLI::App app(
      "Keeps a MobilePhone and an InCallService process alive, which print the settings that they "
      "read below the device root.",
      "dialler-restarter");
  app.add_option("--root", root, "Device root (default: the user's data folder)")->type_name("DIR");
  try {
    app.parse(count, arguments);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kNotUnderstood;
  }

  const auto signals = handledSignals();
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  std::array<Process, 2> processes{{{"MobilePhone"}, {"InCallService"}}};
  bool running = true;
  for (auto& process : processes) {
    running = running && start(process, folder, root);
  }
  int result = running ? 0 : 1;

  while (running) {
    int signal = 0;
    sigwait(&signals, &signal);
    if (signal != SIGCHLD) {
      break;
    }
    int status = 0;
    for (pid_t ended = 0; (ended = waitpid(-1, &status, WNOHANG)) > 0;) {
      // One that ends by itself cannot do its work; starting it for ever would be a busy loop.
      if (WIFEXITED(status)) {
        std::fprintf(stderr, "dialler-restarter: a process ended with %d\n", WEXITSTATUS(status));
        running = false;
        result = 1;
        break;
      }
      for (auto& process : processes) {
        if (process.pid == ended && !start(process, folder, root)) {
          running = false;
          result = 1;
        }
      }
    }
  }

  for (const auto& process : processes) {
    if (process.pid > 0 && kill(process.pid, SIGKILL) == 0) {
      waitpid(process.pid, nullptr, 0);
    }
  }
  return result;
}
