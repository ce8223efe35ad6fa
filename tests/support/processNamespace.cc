#include "tests/support/processNamespace.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <unistd.h>
#include <vector>

#include <sys/wait.h>

namespace {

constexpr const char* kInside = "QUIETDIAL_TEST_NAMESPACE";

[[noreturn]] void startInside(char** arguments) {
  std::vector<char*> command;
  std::array<const char*, 6> prefix{"unshare",      "--pid",        "--fork",
                                    "--kill-child", "--mount-proc", "--map-root-user"};
  // Who is not root needs a user namespace for it.
  const auto words = geteuid() == 0 ? prefix.size() - 1 : prefix.size();
  std::transform(prefix.begin(), prefix.begin() + words, std::back_inserter(command),
                 [](const char* word) { return const_cast<char*>(word); });
  static char self[] = "/proc/self/exe";
  std::array<char, 4096> path{};
  command.push_back(readlink(self, path.data(), path.size() - 1) > 0 ? path.data() : arguments[0]);
  for (char** argument = arguments + 1; *argument; ++argument) {
    command.push_back(*argument);
  }
  command.push_back(nullptr);
  setenv(kInside, "1", 1);
  execvp(command.front(), command.data());
  std::perror("unshare");
  std::exit(1);
}

// Waits for every process of the namespace; the program's own result is that of `program`.
int collectUntilEnd(pid_t program) {
  int status = 0;
  while (true) {
    const pid_t ended = wait(&status);
    if (ended == program) {
      return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
    }
    if (ended < 0 && errno != EINTR) {
      return 1;
    }
  }
}

}  // namespace

void enterProcessNamespace(char** arguments) {
  if (!std::getenv(kInside)) {
    startInside(arguments);
  }
  if (getpid() == 1) {
    const pid_t program = fork();
    if (program != 0) {
      std::exit(collectUntilEnd(program));
    }
  }
}
