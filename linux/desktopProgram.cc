#include "linux/desktopProgram.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <thread>
#include <unistd.h>
#include <utility>

#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include "linux/FileDescriptor.h"
#include "linux/StartEnvironment.h"
#include "linux/findProgram.h"

namespace {

// Its process identifier; nothing when it could not be started. It reads from `input` and its
// output goes to `output`; negative is nothing and nowhere.
std::optional<pid_t> start(const std::vector<std::string>& arguments, int input, int output) {
  const auto path = arguments.front().starts_with('/') ? std::optional(arguments.front())
                                                       : findProgram(arguments.front());
  if (!path) {
    return std::nullopt;
  }
  std::vector<char*> vector;
  vector.reserve(arguments.size() + 1);
  for (const auto& argument : arguments) {
    vector.push_back(const_cast<char*>(argument.c_str()));
  }
  vector.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (input >= 0) {
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
  } else {
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  }
  if (output >= 0) {
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  } else {
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  }
  posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  // Libraries of this program ignore the signal of a pipe that nobody reads; others die of it.
  sigset_t pipe{};
  sigemptyset(&pipe);
  sigaddset(&pipe, SIGPIPE);
  posix_spawnattr_setsigdefault(&attributes, &pipe);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF);

  pid_t pid = 0;
  const int error = posix_spawn(&pid, path->c_str(), &actions, &attributes, vector.data(),
                                StartEnvironment::shared().variables());
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
  return error == 0 ? std::optional(pid) : std::nullopt;
}

// The wait status, once the process has ended.
int collect(pid_t pid) {
  int status = -1;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

// Whether the process has ended by then; it is still to be collected.
bool endsInTime(pid_t pid, std::chrono::milliseconds patience) {
  const FileDescriptor process(static_cast<int>(syscall(SYS_pidfd_open, pid, 0)));
  const auto deadline = std::chrono::steady_clock::now() + patience;
  int ready = -1;
  do {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    pollfd ended{process.get(), POLLIN, 0};
    ready = poll(&ended, 1, static_cast<int>(std::max<long>(left.count(), 0)));
  } while (ready < 0 && errno == EINTR);
  return ready > 0;
}

bool hasSucceeded(int status) {
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// The bytes as a file without a name, at its start.
FileDescriptor fileWith(std::string_view bytes) {
  FileDescriptor file(memfd_create("input", MFD_CLOEXEC));
  while (file && !bytes.empty()) {
    const ssize_t count = write(file.get(), bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) {
      return FileDescriptor();
    }
    bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }
  if (file && lseek(file.get(), 0, SEEK_SET) != 0) {
    return FileDescriptor();
  }
  return file;
}

// Reads until the other end closes. False when time ran out or the bound was passed.
bool readAll(int descriptor, std::chrono::steady_clock::time_point deadline, std::size_t longest,
             std::string& text) {
  while (text.size() <= longest) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    pollfd readable{descriptor, POLLIN, 0};
    const int ready = poll(&readable, 1, static_cast<int>(std::max<long>(left.count(), 0)));
    if (ready < 0 && errno == EINTR) {
      continue;
    }
    if (ready <= 0) {
      return false;
    }
    std::array<char, 1024> buffer{};
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count == 0) {
      return true;
    }
    if (count > 0) {
      text.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return false;
}

}  // namespace

std::optional<std::string> outputOfDesktopProgram(const std::vector<std::string>& arguments,
                                                  std::chrono::milliseconds patience,
                                                  std::size_t longest) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    return std::nullopt;
  }
  const FileDescriptor reading(ends[0]);
  FileDescriptor writing(ends[1]);
  const auto pid = start(arguments, -1, writing.get());
  writing.close();
  if (!pid) {
    return std::nullopt;
  }
  std::string text;
  const auto deadline = std::chrono::steady_clock::now() + patience;
  const bool whole = readAll(reading.get(), deadline, longest, text);
  if (!whole) {
    kill(-*pid, SIGKILL);  // with whatever it started: the session is its own
  }
  const int status = collect(*pid);
  return whole && hasSucceeded(status) ? std::optional(std::move(text)) : std::nullopt;
}

bool feedDesktopProgram(const std::vector<std::string>& arguments, std::string_view input,
                        std::chrono::milliseconds patience) {
  const auto file = fileWith(input);
  const auto pid = file ? start(arguments, file.get(), -1) : std::nullopt;
  if (!pid) {
    return false;
  }
  const bool ended = endsInTime(*pid, patience);
  if (!ended) {
    kill(-*pid, SIGKILL);
  }
  return hasSucceeded(collect(*pid)) && ended;
}

bool launchDesktopProgram(const std::vector<std::string>& arguments,
                          std::chrono::milliseconds patience) {
  const auto pid = start(arguments, -1, -1);
  if (!pid) {
    return false;
  }
  if (endsInTime(*pid, patience)) {
    return hasSucceeded(collect(*pid));
  }
  std::thread(collect, *pid).detach();
  return true;
}

bool startDesktopProgram(const std::vector<std::string>& arguments) {
  const auto pid = start(arguments, -1, -1);
  if (!pid) {
    return false;
  }
  std::thread(collect, *pid).detach();
  return true;
}
