#include "linux/FileLock.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <unistd.h>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "tests/support/TemporaryFolder.h"

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kAtOnce(0);
constexpr milliseconds kLong(60'000);

class FileLockTest : public testing::Test {
 protected:
  std::string path() const { return (folder_.path() / "in/a folder/lock").string(); }

  TemporaryFolder folder_;
};

TEST_F(FileLockTest, IsTheUsersAloneAndStays) {
  { EXPECT_FALSE(FileLock(path(), kAtOnce).error()); }
  struct stat status {};
  ASSERT_EQ(stat(path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0600U);
}

TEST_F(FileLockTest, IsHeldByOneAtATime) {
  std::optional<FileLock> first(std::in_place, path(), kAtOnce);
  EXPECT_FALSE(first->error());
  EXPECT_EQ(FileLock(path(), kAtOnce).error(), std::errc::timed_out);
  first.reset();
  EXPECT_FALSE(FileLock(path(), kAtOnce).error());
}

TEST_F(FileLockTest, EndsWithTheProcessThatHoldsIt) {
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    const FileLock lock(path(), kAtOnce);
    const char letter = lock.error() ? 'n' : 'y';
    (void)!write(ready[1], &letter, 1);
    while (true) {
      pause();
    }
  }
  char letter = 0;
  ASSERT_EQ(read(ready[0], &letter, 1), 1);
  ASSERT_EQ(letter, 'y');
  EXPECT_EQ(FileLock(path(), kAtOnce).error(), std::errc::timed_out);
  kill(child, SIGKILL);
  EXPECT_FALSE(FileLock(path(), kLong).error());
  waitpid(child, nullptr, 0);
  close(ready[0]);
  close(ready[1]);
}

TEST_F(FileLockTest, IsNotTakenOnWhatOthersMayHaveLaidThere) {
  std::filesystem::create_directories(folder_.path() / "in/a folder");
  std::ofstream(folder_.path() / "target") << "";
  std::filesystem::create_symlink(folder_.path() / "target", path());
  EXPECT_EQ(FileLock(path(), kAtOnce).error(), std::errc::too_many_symbolic_link_levels);
  std::filesystem::remove(path());
  ASSERT_EQ(mkfifo(path().c_str(), 0600), 0);
  EXPECT_EQ(FileLock(path(), kAtOnce).error(), std::errc::operation_not_permitted);
  std::filesystem::remove(path());
  std::ofstream(path()) << "";
  ASSERT_EQ(chmod(path().c_str(), 0644), 0);
  EXPECT_EQ(FileLock(path(), kAtOnce).error(), std::errc::operation_not_permitted);
  ASSERT_EQ(chmod(path().c_str(), 0600), 0);
  std::filesystem::create_hard_link(path(), folder_.path() / "another name");
  EXPECT_EQ(FileLock(path(), kAtOnce).error(), std::errc::operation_not_permitted);
}

}  // namespace
