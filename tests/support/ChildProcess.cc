#include "tests/support/ChildProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <unistd.h>

#include <sys/wait.h>

ChildProcess::ChildProcess(const std::vector<std::string>& arguments) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    throw std::runtime_error("no pipe");
  }
  output_ = FileDescriptor(ends[0]);
  const FileDescriptor writing(ends[1]);
  std::vector<char*> words;
  for (const auto& argument : arguments) {
    words.push_back(const_cast<char*>(argument.c_str()));
  }
  words.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, writing.get(), STDOUT_FILENO);
  const int error = posix_spawnp(&pid_, words[0], &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) {
    throw std::runtime_error("cannot start " + arguments.front());
  }
}

ChildProcess::~ChildProcess() {
  end(SIGKILL);
}

std::optional<std::string> ChildProcess::readLine(std::chrono::milliseconds patience) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (true) {
    const auto length = pending_.find('\n');
    if (length != std::string::npos) {
      auto line = pending_.substr(0, length);
      pending_.erase(0, length + 1);
      return line;
    }
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    pollfd readable{output_.get(), POLLIN, 0};
    if (left.count() <= 0 || poll(&readable, 1, static_cast<int>(left.count())) <= 0) {
      return std::nullopt;
    }
    std::array<char, 4096> buffer{};
    const ssize_t count = read(output_.get(), buffer.data(), buffer.size());
    if (count <= 0) {
      return std::nullopt;
    }
    pending_.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

int ChildProcess::end(int signal) {
  int status = 0;
  if (pid_ > 0) {
    kill(pid_, signal);
    while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
    }
    pid_ = -1;
  }
  return status;
}
