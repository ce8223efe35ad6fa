#include "linux/DesktopAddressOpener.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "linux/FileDescriptor.h"
#include "linux/StartEnvironment.h"
#include "linux/desktopProgram.h"
#include "linux/findProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using testing::HasSubstr;
using testing::Not;

// A desktop whose programs are scripts of the test.
class Desktop : public testing::Test {
 protected:
  Desktop() {
    program("xdg-mime",
            "echo \"$*\" >>\"$DESKTOP/asked\"\n"
            "case $3 in x-scheme-handler/known) echo viewer.desktop;; "
            "x-scheme-handler/broken) echo viewer.desktop; exit 1;; esac\n");
    ::setenv("DESKTOP", folder_.path().c_str(), 1);
    ::setenv("PATH", (folder_.path().string() + ":/usr/bin:/bin").c_str(), 1);
  }

  void program(const std::string& name, const std::string& script) {
    writeBytes(folder_ / name, "#!/bin/sh\n" + script);
    chmod((folder_ / name).c_str(), 0755);
  }

  // A pipe in the folder that the programs know.
  FileDescriptor pipe(const std::string& name) {
    EXPECT_EQ(mkfifo((folder_ / name).c_str(), 0600), 0);
    return FileDescriptor(open((folder_ / name).c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  }

  // All that is written to it until those who write have gone.
  static std::string allOf(const FileDescriptor& pipe) {
    constexpr int patience = 30'000;  // ms, for one who writes nothing
    std::string bytes;
    for (pollfd waiting{pipe.get(), POLLIN, 0}; poll(&waiting, 1, patience) > 0;) {
      std::array<char, 4096> piece{};
      const auto count = read(pipe.get(), piece.data(), piece.size());
      if (count == 0) {
        return bytes;
      }
      bytes.append(piece.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    ADD_FAILURE() << "Nobody wrote, or did not end: " << bytes;
    return bytes;
  }

  TemporaryFolder folder_;
  DesktopAddressOpener opener_;
};

}  // namespace

TEST_F(Desktop, AnAddressCanBeOpenedWhenItsSchemeHasAHandler) {
  EXPECT_TRUE(opener_.canOpen("known://package/a"));
  EXPECT_TRUE(opener_.canOpen("KNOWN:x"));
  EXPECT_FALSE(opener_.canOpen("unknown://package/a"));
  EXPECT_FALSE(opener_.canOpen("broken:x"));
  EXPECT_TRUE(bytesOf(folder_ / "asked").starts_with("query default x-scheme-handler/known\n"));
}

TEST_F(Desktop, WhatIsNoAddressIsNotAskedFor) {
  for (const auto* text : {"", "known", ":x", "--help:x", "kno wn:x", "known:a b", "kn/own:x",
                           "known:a\nb", "9known:x"}) {
    EXPECT_FALSE(opener_.canOpen(text)) << text;
  }
  EXPECT_FALSE(std::filesystem::exists(folder_ / "asked"));
}

TEST_F(Desktop, WithoutItsProgramsNothingCanBeOpened) {
  ::setenv("PATH", "/nowhere", 1);
  EXPECT_FALSE(opener_.canOpen("known:x"));
  opener_.open("known:x");
}

TEST_F(Desktop, AnAddressIsOneArgumentAndNoShellCommand) {
  const auto opened = pipe("opened");
  program("xdg-open", "printf '%s|%s' \"$#\" \"$1\" >\"$DESKTOP/opened\"\n");
  const std::string url = "known:$(touch%20x);`id`'\"&a=1";
  opener_.open(url);
  EXPECT_EQ(allOf(opened), "1|" + url);
}

TEST_F(Desktop, AProgramHasTheEnvironmentOfThisProgramsStart) {
  ::setenv("DESKTOP_STARTUP_ID", "an-id_TIME0", 1);
  ::setenv("XDG_ACTIVATION_TOKEN", "a-token", 1);
  ::setenv("QUIETDIAL_KEPT", "a=b", 1);
  StartEnvironment::shared();
  ::setenv("QUIETDIAL_LATER", "1", 1);
  ::setenv("QUIETDIAL_KEPT", "c", 1);
  const auto opened = pipe("opened");
  program("xdg-open", "env >\"$DESKTOP/opened\"\n");
  opener_.open("known:x");
  const auto environment = "\n" + allOf(opened);
  EXPECT_THAT(environment, HasSubstr("\nQUIETDIAL_KEPT=a=b\n"));
  EXPECT_THAT(environment, HasSubstr("\nDESKTOP=" + folder_.path().string() + "\n"));
  EXPECT_THAT(environment, Not(HasSubstr("QUIETDIAL_LATER")));
  EXPECT_THAT(environment, Not(HasSubstr("DESKTOP_STARTUP_ID")));
  EXPECT_THAT(environment, Not(HasSubstr("XDG_ACTIVATION_TOKEN")));
}

TEST_F(Desktop, AProgramGetsNothingThatIsOpenHereAndDiesOfABrokenPipe) {
  const FileDescriptor low(open("/dev/null", O_RDONLY));
  const FileDescriptor high(fcntl(low.get(), F_DUPFD, 200));
  std::signal(SIGPIPE, SIG_IGN);
  const auto opened = pipe("opened");
  program("xdg-open",
          "exec >\"$DESKTOP/opened\"\n"
          "sh -c 'for number in $(seq 0 255); do"
          " [ -e /proc/self/fd/$number ] && echo $number; done'\n"
          "kill -PIPE $$\n"
          "echo survived\n");
  opener_.open("known:x");
  EXPECT_EQ(allOf(opened), "0\n1\n2\n");
}

TEST_F(Desktop, ProgramsAreLookedUpInAbsoluteFoldersAlone) {
  program("xdg-open", "touch \"$DESKTOP/started\"\n");
  std::filesystem::current_path(folder_.path());
  const auto name = folder_.path().filename().string();
  ::setenv("PATH", (":.::../" + name + ":./:").c_str(), 1);
  EXPECT_EQ(findProgram("xdg-open"), std::nullopt);
  EXPECT_FALSE(opener_.canOpen("known:x"));
  EXPECT_FALSE(startDesktopProgram({"xdg-open"}));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "asked"));
}

TEST_F(Desktop, AProgramThatCouldBeStartedIsSaidToBe) {
  const auto said = pipe("said");
  program("tool", "echo a >\"$DESKTOP/said\"\n");
  EXPECT_TRUE(startDesktopProgram({(folder_ / "tool").string()}));
  EXPECT_EQ(allOf(said), "a\n");
}

TEST_F(Desktop, AProgramThatStillRunsWhenPatienceEndsHasBeenLaunched) {
  const auto said = pipe("said");
  const auto held = pipe("held");
  program("tool", "read word <\"$DESKTOP/held\"\necho $word >\"$DESKTOP/said\"\n");
  EXPECT_TRUE(launchDesktopProgram({(folder_ / "tool").string()}, std::chrono::milliseconds(1)));
  const FileDescriptor writing(open((folder_ / "held").c_str(), O_WRONLY | O_CLOEXEC));
  EXPECT_EQ(write(writing.get(), "a\n", 2), 2);
  EXPECT_EQ(allOf(said), "a\n");
}

TEST_F(Desktop, AProgramIsWhatLiesFirstInThePathAndCanBeRun) {
  std::filesystem::create_directories(folder_ / "a/tool");
  writeBytes(folder_ / "b/tool", "#!/bin/sh\n");
  program("c/tool", "");
  program("d/tool", "");
  const auto in = [this](const char* name) { return (folder_ / name).string(); };
  ::setenv("PATH", ("relative:" + in("a") + ":" + in("b")).c_str(), 1);
  EXPECT_EQ(findProgram("tool"), std::nullopt);
  EXPECT_EQ(findProgram("tool", "c:" + in("c") + ":" + in("d")), in("c/tool"));
}

TEST_F(Desktop, AnEndlessAnswerIsCutShort) {
  program("xdg-mime", "while :; do echo viewer.desktop; done\n");
  EXPECT_FALSE(opener_.canOpen("known:x"));
}

TEST_F(Desktop, NoProcessIsLeftUncollected) {
  program("xdg-open", "exit 0\n");
  EXPECT_TRUE(opener_.canOpen("known:x"));
  opener_.open("known:x");
  siginfo_t ended{};
  // Blocks while children run, and fails once all of them have been collected by others.
  int result = 0;
  do {
    result = waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT);
  } while (result == 0);
  EXPECT_EQ(errno, ECHILD);
}
