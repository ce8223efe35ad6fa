#include "linux/DesktopAddressOpener.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "tests/support/TemporaryFolder.h"

namespace {

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
  ASSERT_EQ(mkfifo((folder_ / "opened").c_str(), 0600), 0);
  program("xdg-open", "printf '%s|%s' \"$#\" \"$1\" >\"$DESKTOP/opened\"\n");
  const std::string url = "known:$(touch%20x);`id`'\"&a=1";
  opener_.open(url);
  EXPECT_EQ(bytesOf(folder_ / "opened"), "1|" + url);  // waits for the program
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
