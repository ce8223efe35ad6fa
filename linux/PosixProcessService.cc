#include "linux/PosixProcessService.h"

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <sys/wait.h>

namespace {

constexpr int kDeviceNoHang = 1;
constexpr int kDeviceExited = 4;
constexpr int kCoreDumped = 0x80;

// Pointers into the texts, which must outlive them, ended by null.
std::vector<char*> pointersTo(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (const auto& text : texts) {
    pointers.push_back(const_cast<char*>(text.c_str()));
  }
  pointers.push_back(nullptr);
  return pointers;
}

int statusWord(const siginfo_t& end) {
  if (end.si_code == CLD_EXITED) {
    return (end.si_status & 0xFF) << 8;
  }
  return end.si_status | (end.si_code == CLD_DUMPED ? kCoreDumped : 0);
}

}  // namespace

int PosixProcessService::posixSpawn(int& pid, const std::string& path,
                                    const std::vector<std::string>& arguments,
                                    const std::vector<std::string>* environment) {
  const auto vector = pointersTo(arguments);
  const std::vector<std::string> none;
  const auto variables = pointersTo(environment ? *environment : none);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  if (messages_ == Messages::kDropped) {
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  }
  posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
  pid_t started = 0;
  const int error =
      posix_spawn(&started, path.c_str(), &actions, nullptr, vector.data(), variables.data());
  posix_spawn_file_actions_destroy(&actions);
  if (error == 0) {
    pid = started;
  }
  return error;
}

int PosixProcessService::waitpid(int pid, int& status, int options) {
  if (pid <= 0 || (options & ~(kDeviceNoHang | kDeviceExited)) != 0) {
    return -1;
  }
  const int flags = WEXITED | ((options & kDeviceNoHang) != 0 ? WNOHANG : 0);
  siginfo_t end{};
  while (waitid(P_PID, static_cast<id_t>(pid), &end, flags) != 0) {
    if (errno != EINTR) {
      return -1;
    }
  }
  if (end.si_pid == 0) {
    return 0;  // still running
  }
  status = statusWord(end);
  return end.si_pid;
}
