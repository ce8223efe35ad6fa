#include "linux/BundleModule.h"

#include <filesystem>
#include <functional>
#include <string>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "linux/DevicePaths.h"
#include "linux/trustedFile.h"
#include "tests/support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

// A user that is not root, to whom files are given where root runs the test.
const uid_t kUser = geteuid() == 0 ? 4321 : geteuid();
constexpr const char* kModule = "/Library/PreferenceBundles/Own.bundle/module";

class Modules : public testing::Test {
 protected:
  Modules() {
    fs::create_directories(bundle_);
    fs::copy_file(QD_BARE_MODULE, module_);
    chmod(bundle_.c_str(), 0755);
    chmod(module_.c_str(), 0755);
  }

  static std::string faultFor(const fs::path& file, uid_t user) {
    return trustedFile(file, user).fault;
  }

  void give(const fs::path& path, uid_t owner) {
    if (geteuid() == 0) {
      ASSERT_EQ(chown(path.c_str(), owner, owner), 0);
    }
  }

  TemporaryFolder folder_;
  fs::path bundle_ = folder_ / "Own.bundle";
  fs::path module_ = folder_ / "Own.bundle/module";
};

}  // namespace

TEST_F(Modules, WhatBelongsToRootOrTheUserAloneIsTrusted) {
  give(bundle_, kUser);
  give(module_, kUser);
  EXPECT_EQ(faultFor(module_, kUser), "");
  EXPECT_EQ(faultFor("/bin/sh", kUser), "") << "root's";
}

TEST_F(Modules, WhatBelongsToSomeoneElseIsNot) {
  give(bundle_, kUser);
  give(module_, kUser);
  EXPECT_THAT(faultFor(module_, kUser + 1), HasSubstr(bundle_.string() + " belongs to"));
  if (geteuid() == 0) {
    EXPECT_THAT(faultFor(module_, 0), HasSubstr("belongs to"));
    give(bundle_, 0);
    EXPECT_THAT(faultFor(module_, 0), HasSubstr(module_.string() + " belongs to"));
  }
}

TEST_F(Modules, WhatOthersMayWriteIsNot) {
  for (const auto& path : {bundle_, module_}) {
    for (const mode_t mode : {0775, 0757, 0777}) {
      chmod(path.c_str(), mode);
      EXPECT_THAT(faultFor(module_, geteuid()), HasSubstr("may write to " + path.string()));
    }
    chmod(path.c_str(), 0755);
    EXPECT_EQ(faultFor(module_, geteuid()), "");
  }
}

TEST_F(Modules, ALinkIsAsGoodAsWhatItLeadsTo) {
  fs::create_directories(folder_ / "elsewhere");
  chmod((folder_ / "elsewhere").c_str(), 0755);
  fs::rename(module_, folder_ / "elsewhere/file");
  fs::create_symlink("../elsewhere/file", module_);
  const auto found = trustedFile(module_, geteuid());
  EXPECT_EQ(found.fault, "");
  EXPECT_EQ(found.path, fs::canonical(folder_ / "elsewhere/file"))
      << "what was looked at is opened";
  chmod((folder_ / "elsewhere").c_str(), 0777);
  EXPECT_THAT(faultFor(module_, geteuid()), HasSubstr("elsewhere"));
  chmod((folder_ / "elsewhere").c_str(), 0755);
  chmod(bundle_.c_str(), 0777);
  EXPECT_THAT(faultFor(module_, geteuid()), HasSubstr(bundle_.string()));
}

TEST_F(Modules, OnlyAFileIsOpened) {
  fs::remove(module_);
  ASSERT_EQ(mkfifo(module_.c_str(), 0600), 0);
  EXPECT_THAT(faultFor(module_, geteuid()), HasSubstr(module_.string() + " is no file"));
}

TEST_F(Modules, AModuleIsOpenedOrTheReasonIsTold) {
  const DevicePaths paths(folder_ / "root", folder_ / "Library", bundle_);
  chmod(module_.c_str(), 0666);
  const BundleModule refused(paths, kModule);
  EXPECT_EQ(refused.bundle(), nullptr);
  EXPECT_EQ(refused.error(),
            "The module cannot be opened: others may write to " + module_.string() + ".");
  fs::remove(module_);
  const BundleModule missing(paths, kModule);
  EXPECT_EQ(missing.bundle(), nullptr);
  EXPECT_THAT(missing.error(), HasSubstr("No such file"));
  fs::copy_file(QD_BARE_MODULE, module_);
  chmod(module_.c_str(), 0700);
  const BundleModule opened(paths, kModule);
  EXPECT_EQ(opened.error(), "");
  ASSERT_TRUE(opened.bundle());
  EXPECT_EQ(opened.bundle()->bundlePath(), "/Library/PreferenceBundles/Own.bundle");
}

TEST_F(Modules, OfADeviceRootTheyAreOpenedByOthersThanRootAlone) {
  const auto own = folder_ / "root/Library/PreferenceBundles";
  fs::create_directories(own);
  fs::rename(bundle_, own / "Own.bundle");
  const BundleModule module(DevicePaths(folder_ / "root", folder_ / "Library"), kModule);
  if (geteuid() == 0) {
    EXPECT_EQ(module.bundle(), nullptr);
    EXPECT_EQ(module.error(),
              "The module cannot be opened: it belongs to no installed bundle, and root opens no "
              "others.");
  } else {
    EXPECT_EQ(module.error(), "");
    EXPECT_TRUE(module.bundle());
  }
}
