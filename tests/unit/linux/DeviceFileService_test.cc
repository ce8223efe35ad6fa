#include "linux/DeviceFileService.h"

#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "linux/propertylist/PropertyListSerialization.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/sampleSettings.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

namespace {

constexpr const char* kPath = "/User/Library/Preferences/settings.plist";

class DeviceFiles : public testing::Test {
 protected:
  std::vector<std::string> namesInFolder() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(host_.parent_path())) {
      names.push_back(entry.path().filename());
    }
    return names;
  }

  std::optional<PropertyListDictionary> read() const {
    return files_.dictionaryWithContentsOfFile(kPath);
  }
  bool write(const PropertyListDictionary& dictionary) {
    return files_.writeToFileAtomically(dictionary, kPath);
  }

  TemporaryFolder root_;
  fs::path host_ = root_ / "User/Library/Preferences/settings.plist";
  DeviceFileService files_{std::make_shared<DevicePaths>(root_.path(), root_ / "installed")};
};

ino_t inodeOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_ino;
}

mode_t modeOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

}  // namespace

TEST_F(DeviceFiles, FirstWriteMakesTheFoldersAndTheFile) {
  EXPECT_EQ(read(), std::nullopt);
  ASSERT_TRUE(write(ownSettings()));
  EXPECT_EQ(read(), ownSettings());
  EXPECT_THAT(namesInFolder(), ElementsAre("settings.plist"));
}

TEST_F(DeviceFiles, ForeignKeysOfEveryKindComeThroughAMerge) {
  auto settings = foreignSettings();
  settings.emplace("uid", PropertyListUID{9});
  settings.emplace("fraction", PropertyListDate{722183049.12345678});
  ASSERT_TRUE(write(settings));
  for (int round = 0; round < 3; ++round) {
    auto merged = *read();
    merged.insert_or_assign("selectedPrefix", "*67");
    ASSERT_TRUE(write(merged));
  }
  settings.emplace("selectedPrefix", "*67");
  EXPECT_EQ(read(), settings);
}

TEST_F(DeviceFiles, AFileOfAnotherRootReadsAsNothing) {
  for (const auto* bytes : {"<plist><array/></plist>", "<plist><string>a</string></plist>", "x"}) {
    writeBytes(host_, bytes);
    EXPECT_EQ(read(), std::nullopt);
  }
}

TEST_F(DeviceFiles, ANewFileAndItsFoldersAreTheUsersAlone) {
  umask(0);
  ASSERT_TRUE(write({{"a", 1}}));
  EXPECT_EQ(modeOf(host_), 0600);
  for (const auto* folder : {"User", "User/Library", "User/Library/Preferences"}) {
    EXPECT_EQ(modeOf(root_ / folder), 0700) << folder;
  }
}

TEST_F(DeviceFiles, FoldersThatAreThereStayAsTheyAre) {
  fs::create_directories(host_.parent_path());
  chmod(host_.parent_path().c_str(), 0755);
  ASSERT_TRUE(write({{"a", 1}}));
  EXPECT_EQ(modeOf(host_.parent_path()), 0755);
}

TEST_F(DeviceFiles, TheModeThatAUserGaveIsKept) {
  writeBytes(host_, *bytesFromPropertyList(ownSettings()));
  for (const mode_t mode : {0640, 0600, 0666, 0444, 0400}) {
    chmod(host_.c_str(), mode);
    ASSERT_TRUE(write({{"mode", mode}}));
    EXPECT_EQ(modeOf(host_), mode);
  }
}

TEST_F(DeviceFiles, OwnerIsKeptWhereTheWriterMayGiveFilesAway) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "only root may give files away";
  }
  writeBytes(host_, *bytesFromPropertyList(ownSettings()));
  ASSERT_EQ(chown(host_.c_str(), 1234, 1235), 0);
  ASSERT_TRUE(write({{"a", 1}}));
  struct stat status {};
  ASSERT_EQ(stat(host_.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 1234);
  EXPECT_EQ(status.st_gid, 1235);
}

TEST_F(DeviceFiles, TheGroupIsKeptWhereItAloneIsAnother) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "only root may give files to any group";
  }
  writeBytes(host_, *bytesFromPropertyList(ownSettings()));
  ASSERT_EQ(chown(host_.c_str(), geteuid(), 1235), 0);
  ASSERT_TRUE(write({{"a", 1}}));
  struct stat status {};
  ASSERT_EQ(stat(host_.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, geteuid());
  EXPECT_EQ(status.st_gid, 1235);
}

TEST_F(DeviceFiles, ASymbolicLinkIsFollowedAndStaysALink) {
  const auto target = root_ / "elsewhere/real.plist";
  writeBytes(target, *bytesFromPropertyList(ownSettings()));
  fs::create_directories(host_.parent_path());
  fs::create_symlink("../../../elsewhere/middle", host_);
  fs::create_symlink("real.plist", root_ / "elsewhere/middle");
  ASSERT_TRUE(write({{"a", 1}}));
  EXPECT_TRUE(fs::is_symlink(host_));
  EXPECT_TRUE(fs::is_symlink(root_ / "elsewhere/middle"));
  EXPECT_FALSE(fs::is_symlink(target));
  EXPECT_EQ(dictionaryFromBytes(bytesOf(target)), (PropertyListDictionary{{"a", 1}}));
}

TEST_F(DeviceFiles, ADanglingLinkGetsItsTarget) {
  fs::create_directories(host_.parent_path());
  fs::create_symlink(root_ / "new/place.plist", host_);
  ASSERT_TRUE(write({{"a", 1}}));
  EXPECT_TRUE(fs::is_symlink(host_));
  EXPECT_TRUE(fs::exists(root_ / "new/place.plist"));
}

TEST_F(DeviceFiles, LinksInACircleFailTheWrite) {
  fs::create_directories(host_.parent_path());
  fs::create_symlink("settings.plist", host_);
  EXPECT_FALSE(write({{"a", 1}}));
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_THAT(namesInFolder(), ElementsAre("settings.plist"));
}

TEST_F(DeviceFiles, OtherThingsInPlaceOfTheFileReadAsNothingAndAreNotReplaced) {
  fs::create_directories(host_);
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_EQ(files_.dataWithContentsOfFile(kPath), std::nullopt);
  EXPECT_FALSE(write({{"a", 1}}));
  fs::remove(host_);
  ASSERT_EQ(mkfifo(host_.c_str(), 0600), 0);
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_FALSE(write({{"a", 1}}));
  EXPECT_TRUE(fs::is_fifo(host_));
  EXPECT_THAT(namesInFolder(), ElementsAre("settings.plist"));
}

TEST_F(DeviceFiles, AFileOverTheBoundReadsAsNothingAndIsNeverReplaced) {
  writeBytes(host_, "x");
  fs::resize_file(host_, std::size_t{17} << 20);
  const auto inode = inodeOf(host_);
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_EQ(files_.dataWithContentsOfFile(kPath), std::nullopt);
  EXPECT_FALSE(write({{"a", 1}}));
  EXPECT_EQ(inodeOf(host_), inode);
  EXPECT_THAT(namesInFolder(), ElementsAre("settings.plist"));
}

TEST_F(DeviceFiles, AnUnreadableFileIsKeptOnceBeforeItIsReplaced) {
  writeBytes(host_, "first damage");
  ASSERT_TRUE(write({{"a", 1}}));
  EXPECT_EQ(read(), (PropertyListDictionary{{"a", 1}}));
  EXPECT_EQ(bytesOf(host_.string() + ".damaged"), "first damage");
  writeBytes(host_, "second damage");
  ASSERT_TRUE(write({{"a", 2}}));
  EXPECT_EQ(bytesOf(host_.string() + ".damaged"), "first damage");
  EXPECT_THAT(namesInFolder(), UnorderedElementsAre("settings.plist", "settings.plist.damaged"));
}

TEST_F(DeviceFiles, TemporariesOfDeadWritersAreSweptAndOthersLeftAlone) {
  const auto stray = host_.parent_path() / ".settings.plist.0123456789abcdef.tmp";
  const auto live = host_.parent_path() / ".settings.plist.fedcba9876543210.tmp";
  const auto foreign = host_.parent_path() / ".other.plist.0123456789abcdef.tmp";
  for (const auto& path : {stray, live, foreign}) {
    writeBytes(path, "half");
  }
  const int writer = open(live.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_EQ(flock(writer, LOCK_EX), 0);
  ASSERT_TRUE(write({{"a", 1}}));
  EXPECT_FALSE(fs::exists(stray));
  EXPECT_TRUE(fs::exists(live));
  EXPECT_TRUE(fs::exists(foreign));
  close(writer);
  ASSERT_TRUE(write({{"a", 2}}));
  EXPECT_FALSE(fs::exists(live));
}

TEST_F(DeviceFiles, WhatCannotBeWrittenLeavesTheOldFile) {
  ASSERT_TRUE(write(ownSettings()));
  const auto inode = inodeOf(host_);
  EXPECT_FALSE(write({{"a", std::string(std::size_t{16} << 20, 'x')}}));
  EXPECT_FALSE(write({{"a", "\xFF"}}));
  EXPECT_FALSE(files_.writeToFileAtomically({}, "/etc/settings.plist"));
  EXPECT_EQ(inodeOf(host_), inode);
  EXPECT_EQ(read(), ownSettings());
  EXPECT_THAT(namesInFolder(), ElementsAre("settings.plist"));
}

TEST_F(DeviceFiles, AParentThatIsAFileFailsTheWrite) {
  writeBytes(root_ / "User", "x");
  EXPECT_FALSE(write({{"a", 1}}));
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_EQ(bytesOf(root_ / "User"), "x");
}

TEST_F(DeviceFiles, DataIsReadAsItIs) {
  const std::string bytes("a\0b\r\n", 5);
  writeBytes(host_, bytes);
  const auto data = files_.dataWithContentsOfFile(kPath);
  ASSERT_TRUE(data);
  ASSERT_EQ(data->size(), bytes.size());
  EXPECT_EQ(std::memcmp(data->data(), bytes.data(), bytes.size()), 0);
  EXPECT_EQ(files_.dataWithContentsOfFile("/User/none"), std::nullopt);
}

TEST_F(DeviceFiles, InstalledFilesAreReadAndNeverWritten) {
  writeBytes(root_ / "installed/a.plist", "<plist><dict/></plist>");
  EXPECT_EQ(files_.dictionaryWithContentsOfFile("/Library/a.plist"), PropertyListDictionary{});
  ASSERT_TRUE(files_.writeToFileAtomically({{"a", 1}}, "/Library/a.plist"));
  EXPECT_EQ(bytesOf(root_ / "installed/a.plist"), "<plist><dict/></plist>");
  EXPECT_EQ(files_.dictionaryWithContentsOfFile("/Library/a.plist"),
            (PropertyListDictionary{{"a", 1}}));
}

TEST_F(DeviceFiles, AFailedWriteSaysWhy) {
  const auto replace = [this](const PropertyListDictionary& dictionary, const char* path) {
    return files_.replaceFile(dictionary, path);
  };
  EXPECT_EQ(replace({{"a", 1}}, kPath), std::error_code());
  EXPECT_EQ(replace({}, "/etc/settings.plist"), std::errc::invalid_argument);
  EXPECT_EQ(replace({{"a", std::string(17U << 20, 'x')}}, kPath), std::errc::file_too_large);

  const auto at = [this](const char* name) { return host_.parent_path() / name; };
  fs::create_directory(at("folder.plist"));
  EXPECT_EQ(replace({}, "/User/Library/Preferences/folder.plist"), std::errc::is_a_directory);
  ASSERT_EQ(mkfifo(at("pipe.plist").c_str(), 0600), 0);
  EXPECT_EQ(replace({}, "/User/Library/Preferences/pipe.plist"), std::errc::not_supported);
  fs::create_symlink("loop.plist", at("loop.plist"));
  EXPECT_EQ(replace({}, "/User/Library/Preferences/loop.plist"),
            std::errc::too_many_symbolic_link_levels);
  EXPECT_EQ(replace({}, "/User/Library/Preferences/settings.plist/a.plist"),
            std::errc::not_a_directory);
  writeBytes(at("large.plist"), "");
  fs::resize_file(at("large.plist"), (16U << 20) + 1);
  EXPECT_EQ(replace({}, "/User/Library/Preferences/large.plist"), std::errc::file_too_large);
}
