#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <random>
#include <system_error>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include "linux/DeviceFileService.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kPath = "/User/Library/Preferences/s.plist";

class BrokenWrites : public testing::Test {
 protected:
  fs::path folder() const { return root_ / "User/Library/Preferences"; }

  // Runs the writer for one generation with the fault set. Its exit status, or -1 when it was
  // killed; what it printed last is in said_.
  int writeWithFault(int generation, int call, int error) {
    const auto number = std::to_string(generation);
    std::vector<std::string> command{"env", "LD_PRELOAD=" QD_SHIM,
                                     "QUIETDIAL_FAULT_CALL=" + std::to_string(call)};
    if (error != 0) {
      command.push_back("QUIETDIAL_FAULT_ERROR=" + std::to_string(error));
    }
    command.insert(command.end(), {QD_WRITER, root_.path().string(), number, number});
    ChildProcess writer(command);
    said_.clear();
    while (const auto line = writer.readLine()) {
      said_ = *line;
    }
    const int status = writer.end(0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  // The generation that all keys of the file agree on; nothing when there is no whole file.
  std::optional<std::int64_t> generation() const {
    const auto settings = files_.dictionaryWithContentsOfFile(kPath);
    if (!settings || settings->size() != 14) {
      return std::nullopt;
    }
    const auto first = settings->at("key0");
    for (int key = 1; key < 13; ++key) {
      if (settings->at("key" + std::to_string(key)) != first) {
        return std::nullopt;
      }
    }
    return first.integerValue();
  }

  // Puts a disk of 256 KiB in place of that folder.
  static std::error_code mountSmallDisk(const fs::path& folder) {
    const int status = mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=256k");
    return status == 0 ? std::error_code() : std::error_code(errno, std::generic_category());
  }

  bool write(int generation) {
    PropertyListDictionary settings{{"filler", ""}};
    for (int key = 0; key < 13; ++key) {
      settings.emplace("key" + std::to_string(key), generation);
    }
    return files_.writeToFileAtomically(settings, kPath);
  }

  std::size_t filesInFolder() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder()), fs::directory_iterator()));
  }

  // Lets every user come as far as the settings' folder.
  void openToOthers() const {
    chmod(root_.path().c_str(), 0755);
    for (const auto* path : {"User", "User/Library", "User/Library/Preferences"}) {
      chmod((root_ / path).c_str(), 0755);
    }
  }

  TemporaryFolder root_;
  std::string said_;
  DeviceFileService files_{std::make_shared<DevicePaths>(root_.path(), "/nowhere")};
};

}  // namespace

TEST_F(BrokenWrites, AKillAtAnyCallLeavesTheOldOrTheNewFileAndTheNextWriteLeavesNothingElse) {
  int call = 1;
  int result = -1;
  for (; call < 200 && result != 0; ++call) {
    ASSERT_TRUE(write(1));
    result = writeWithFault(2, call, 0);
    ASSERT_TRUE(result == 0 || result == -1) << call;
    const auto now = generation();
    ASSERT_TRUE(now) << call;
    EXPECT_TRUE(*now == 1 || *now == 2) << call;
    ASSERT_TRUE(write(3));
    EXPECT_EQ(filesInFolder(), 1U) << call;
  }
  EXPECT_GT(call, 20);
  EXPECT_EQ(result, 0);
}

TEST_F(BrokenWrites, AKillAtAnyCallOfTheFirstWriteLeavesNoneOrTheNewFile) {
  int call = 1;
  int result = -1;
  for (; call < 200 && result != 0; ++call) {
    fs::remove_all(root_ / "User");
    result = writeWithFault(2, call, 0);
    if (fs::exists(folder() / "s.plist")) {
      EXPECT_EQ(generation(), 2) << call;
    }
    ASSERT_TRUE(write(3));
    EXPECT_EQ(filesInFolder(), 1U) << call;
  }
  EXPECT_GT(call, 20);
  EXPECT_EQ(result, 0);
}

TEST_F(BrokenWrites, AnErrorOfAnyCallLeavesTheOldOrTheNewFileAndNothingElse) {
  int calls = 0;
  for (int result = -1; result != 0; ++calls) {
    ASSERT_TRUE(write(1));
    result = writeWithFault(2, calls + 1, 0);
  }
  const auto permissions = fs::status(folder() / "s.plist").permissions();
  for (const int error : {EIO, ENOSPC, EINTR, EDQUOT}) {
    int failures = 0;
    for (int call = 1; call <= calls; ++call) {
      ASSERT_TRUE(write(1));
      const int result = writeWithFault(2, call, error);
      if (result == 4) {
        EXPECT_EQ(generation(), 2);  // the fault hit the writer's own report
        continue;
      }
      ASSERT_TRUE(result == 0 || result == 3) << call << " " << error;
      // What the writer says is what the file is.
      EXPECT_EQ(generation(), result == 0 ? 2 : 1) << call << " " << error;
      EXPECT_EQ(fs::status(folder() / "s.plist").permissions(), permissions)
          << call << " " << error;
      if (result == 3) {
        EXPECT_EQ(said_, "failed " + std::to_string(error)) << call;
        ++failures;
      }
      ASSERT_TRUE(write(3));
      for (const auto& entry : fs::directory_iterator(folder())) {
        EXPECT_NE(entry.path().extension(), ".tmp") << call << " " << error;
      }
      fs::remove(folder() / "s.plist.damaged");
    }
    EXPECT_GE(failures, 5) << error;  // folder, temporary, write, sync, rename
  }
}

TEST_F(BrokenWrites, KillsAtRandomMomentsNeverLeaveAHalfFileOrLoseAnAcknowledgedWrite) {
  ASSERT_TRUE(write(0));
  std::mt19937 random(20261);
  std::uniform_int_distribution<long> moment(100'000, 3'000'000);
  for (int kill = 0; kill < QD_KILLS; ++kill) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const int start = static_cast<int>(*generation());
    const pid_t writer = fork();
    if (writer == 0) {
      for (int next = start + 1;; ++next) {
        if (write(next)) {
          [[maybe_unused]] const auto sent = ::write(ends[1], &next, sizeof next);
        }
      }
    }
    close(ends[1]);
    const timespec pause{0, moment(random)};
    nanosleep(&pause, nullptr);  // the moment of the kill is what is tested
    ::kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
    int acknowledged = start;
    for (int number = 0; read(ends[0], &number, sizeof number) == sizeof number;) {
      acknowledged = number;
    }
    close(ends[0]);
    const auto now = generation();
    ASSERT_TRUE(now) << kill;
    EXPECT_GE(*now, acknowledged);
    EXPECT_LE(*now, acknowledged + 1);
  }
  ASSERT_TRUE(write(1));
  EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(BrokenWrites, AFullDiskLeavesTheOldFileAndNothingElse) {
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  const auto disk = root_ / "User";
  fs::create_directories(disk);
  if (const auto problem = mountSmallDisk(disk); problem == std::errc::operation_not_permitted) {
    GTEST_SKIP() << "only root may mount a disk, and not in every container";
  } else {
    ASSERT_FALSE(problem) << problem.message();
  }
  for (const std::size_t freePages : {0, 1, 2}) {
    ASSERT_TRUE(write(1));
    // Fills the disk, then gives the wanted number of pages back.
    const auto ballast = folder() / "ballast";
    {
      std::ofstream file(ballast, std::ios::binary);
      while (file << std::string(page, 'x') << std::flush) {
      }
    }
    fs::resize_file(ballast, fs::file_size(ballast) / page * page - freePages * page);
    PropertyListDictionary large{{"text", std::string(3 * page, 'y')}};
    EXPECT_EQ(files_.replaceFile(large, kPath), std::errc::no_space_on_device) << freePages;
    EXPECT_EQ(generation(), 1) << freePages;
    EXPECT_EQ(filesInFolder(), 2U) << freePages;
    EXPECT_EQ(write(2), freePages > 0);
    EXPECT_EQ(generation(), freePages > 0 ? 2 : 1);
    fs::remove(ballast);
  }
  EXPECT_EQ(umount(disk.c_str()), 0);
}

TEST_F(BrokenWrites, AReadOnlyFileSystemKeepsItsFileAndSaysWhatItIs) {
  const auto disk = root_ / "User";
  fs::create_directories(disk);
  if (const auto problem = mountSmallDisk(disk); problem == std::errc::operation_not_permitted) {
    GTEST_SKIP() << "only root may mount a disk, and not in every container";
  } else {
    ASSERT_FALSE(problem) << problem.message();
  }
  ASSERT_TRUE(write(1));
  ASSERT_EQ(mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
  EXPECT_EQ(files_.replaceFile({{"a", 1}}, kPath), std::errc::read_only_file_system);
  EXPECT_EQ(generation(), 1);
  EXPECT_EQ(filesInFolder(), 1U);
  EXPECT_EQ(umount(disk.c_str()), 0);
}

TEST_F(BrokenWrites, AReadOnlyFolderOfAnotherUserKeepsItsFile) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "needs root to become another user";
  }
  ASSERT_TRUE(write(1));
  openToOthers();
  chmod((folder() / "s.plist").c_str(), 0644);
  const pid_t other = fork();
  if (other == 0) {
    const bool dropped = setgid(65534) == 0 && setuid(65534) == 0;
    _exit(dropped && generation() == 1 &&
                  files_.replaceFile({{"a", 1}}, kPath) == std::errc::permission_denied
              ? 0
              : 1);
  }
  int status = -1;
  waitpid(other, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(generation(), 1);
  EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(BrokenWrites, AFileThatMayNotBeReadIsKeptBeforeItIsReplaced) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "needs root to become another user";
  }
  ASSERT_TRUE(write(1));
  openToOthers();
  chmod((folder() / "s.plist").c_str(), 0600);
  chmod(folder().c_str(), 0777);
  const auto before = bytesOf(folder() / "s.plist");
  const pid_t other = fork();
  if (other == 0) {
    const bool dropped = setgid(65534) == 0 && setuid(65534) == 0;
    _exit(dropped && !generation() && write(2) && generation() == 2 ? 0 : 1);
  }
  int status = -1;
  waitpid(other, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(bytesOf(folder() / "s.plist.damaged"), before);
  EXPECT_EQ(filesInFolder(), 2U);
}
