#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>

// The main program of tests that use the real killall, which reaches every process of its name:
// they run in a process namespace of their own, below a first process that collects what is
// orphaned.

namespace {

constexpr const char* kInside = "QUIETDIAL_TEST_NAMESPACE";

[[noreturn]] void enterNamespace(char** arguments) {
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

// Waits for every process of the namespace; the tests' own result is that of `tests`.
int collectUntilEnd(pid_t tests) {
  int status = 0;
  while (true) {
    const pid_t ended = wait(&status);
    if (ended == tests) {
      return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
    }
    if (ended < 0 && errno != EINTR) {
      return 1;
    }
  }
}

}  // namespace

int main(int count, char** arguments) {
  const bool listing = std::any_of(arguments, arguments + count, [](const char* argument) {
    return std::string_view(argument).starts_with("--gtest_list_tests");
  });
  if (!listing && !std::getenv(kInside)) {
    enterNamespace(arguments);
  }
  if (!listing && getpid() == 1) {
    const pid_t tests = fork();
    if (tests != 0) {
      return collectUntilEnd(tests);
    }
  }
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
