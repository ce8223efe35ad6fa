#include "linux/PosixProcessService.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>

#include <gtest/gtest.h>
#include <sys/time.h>
#include <sys/wait.h>

#include "linux/FileDescriptor.h"

namespace {

constexpr int kExited = 4;

void expectNoChildIsLeft() {
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

int started(PosixProcessService& processes, const std::string& script,
            const std::vector<std::string>* environment = nullptr) {
  int pid = -1;
  EXPECT_EQ(processes.posixSpawn(pid, "/bin/sh", {"sh", "-c", script}, environment), 0);
  return pid;
}

}  // namespace

TEST(PosixProcessService, TheDevicesExitedOptionWaitsAndCollects) {
  PosixProcessService processes;
  const auto start = std::chrono::steady_clock::now();
  const int pid = started(processes, "/bin/sleep 0.3; exit 7");
  int status = -1;
  EXPECT_EQ(processes.waitpid(pid, status, kExited), pid);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(300));
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 7);
  expectNoChildIsLeft();
}

TEST(PosixProcessService, AKilledProcessHasItsSignalInTheStatus) {
  PosixProcessService processes;
  const int pid = started(processes, "kill -9 $$");
  int status = -1;
  EXPECT_EQ(processes.waitpid(pid, status, kExited), pid);
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGKILL);
}

TEST(PosixProcessService, AnInterruptedWaitGoesOn) {
  struct sigaction action {};
  static volatile std::sig_atomic_t interruptions = 0;
  action.sa_handler = [](int) { interruptions = interruptions + 1; };
  sigaction(SIGALRM, &action, nullptr);  // without SA_RESTART
  const itimerval often{{0, 20'000}, {0, 20'000}};
  PosixProcessService processes;
  const int pid = started(processes, "/bin/sleep 0.3; exit 3");
  setitimer(ITIMER_REAL, &often, nullptr);
  int status = -1;
  EXPECT_EQ(processes.waitpid(pid, status, kExited), pid);
  const itimerval never{};
  setitimer(ITIMER_REAL, &never, nullptr);
  EXPECT_GT(interruptions, 0);
  EXPECT_EQ(WEXITSTATUS(status), 3);
}

TEST(PosixProcessService, AFailedSpawnLeavesNothingToWaitFor) {
  PosixProcessService processes;
  const int other = started(processes, "exit 0");
  int pid = -1;
  EXPECT_EQ(processes.posixSpawn(pid, "/nowhere/killall", {"killall"}, nullptr), ENOENT);
  EXPECT_EQ(pid, -1);
  int status = -5;
  for (const int none : {-1, 0}) {
    EXPECT_EQ(processes.waitpid(none, status, kExited), -1);  // not for any child
  }
  EXPECT_EQ(status, -5);
  EXPECT_EQ(processes.waitpid(other, status, kExited), other);
}

TEST(PosixProcessService, ANullEnvironmentIsEmpty) {
  setenv("QUIETDIAL_INHERITED", "1", 1);
  PosixProcessService processes;
  int status = -1;
  int pid = started(processes, "[ -z \"$QUIETDIAL_INHERITED\" ]");
  processes.waitpid(pid, status, kExited);
  EXPECT_EQ(status, 0);
  const std::vector<std::string> environment{"QUIETDIAL_GIVEN=2"};
  pid = started(processes, "[ \"$QUIETDIAL_GIVEN\" = 2 ]", &environment);
  processes.waitpid(pid, status, kExited);
  EXPECT_EQ(status, 0);
}

TEST(PosixProcessService, AProgramGetsTheFirstThreeDescriptorsAndNoMore) {
  const FileDescriptor low(open("/dev/null", O_RDONLY));
  const FileDescriptor high(fcntl(low.get(), F_DUPFD, 200));
  PosixProcessService processes;
  int status = -1;
  const int pid = started(processes,
                          "[ -e /proc/self/fd/0 ] && [ -e /proc/self/fd/1 ] &&"
                          " [ -e /proc/self/fd/2 ] && [ ! -e /proc/self/fd/" +
                              std::to_string(low.get()) + " ] && [ ! -e /proc/self/fd/" +
                              std::to_string(high.get()) + " ]");
  processes.waitpid(pid, status, kExited);
  EXPECT_EQ(status, 0);
}

TEST(PosixProcessService, AskingWithoutWaitingSaysWhetherItRuns) {
  PosixProcessService processes;
  const int pid = started(processes, "exec /bin/sleep 100");
  int status = -1;
  EXPECT_EQ(processes.waitpid(pid, status, 1 | kExited), 0);
  EXPECT_EQ(processes.waitpid(pid, status, 64), -1);
  kill(pid, SIGKILL);
  EXPECT_EQ(processes.waitpid(pid, status, kExited), pid);
  EXPECT_EQ(processes.waitpid(pid, status, kExited), -1);
}
