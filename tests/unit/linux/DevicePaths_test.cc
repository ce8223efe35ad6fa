#include "linux/DevicePaths.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace {

constexpr uid_t kRoot = 0;
constexpr uid_t kUser = 1000;

}  // namespace

TEST(DevicePaths, UserFilesLieBelowTheRoot) {
  const DevicePaths paths("/data", "/installed/Library");
  EXPECT_EQ(paths.forReading("/User/Library/a.plist"), "/data/User/Library/a.plist");
  EXPECT_EQ(paths.forWriting("/User/Library/a.plist"), "/data/User/Library/a.plist");
}

TEST(DevicePaths, ALibraryFileOfTheRootStandsBeforeTheInstalledOne) {
  const TemporaryFolder folder;
  const DevicePaths paths(folder.path(), "/installed/Library");
  EXPECT_EQ(paths.forReading("/Library/a/b"), "/installed/Library/a/b");
  EXPECT_EQ(paths.forWriting("/Library/a/b"), (folder / "Library/a/b").string());
  writeBytes(folder / "Library/a/b", "x");
  EXPECT_EQ(paths.forReading("/Library/a/b"), (folder / "Library/a/b").string());
}

TEST(DevicePaths, ABundleThatIsGivenStandsAloneForTheOneOfItsName) {
  const TemporaryFolder folder;
  writeBytes(folder / "Library/PreferenceBundles/a.bundle/file", "x");
  writeBytes(folder / "Library/PreferenceBundles/a.bundles/file", "x");
  const DevicePaths paths(folder.path(), "/installed/Library", "/given/a.bundle");
  const std::string bundles = "/Library/PreferenceBundles/";
  EXPECT_EQ(paths.forReading(bundles + "a.bundle/file"), "/given/a.bundle/file");
  EXPECT_EQ(paths.forReading(bundles + "a.bundle"), "/given/a.bundle");
  EXPECT_EQ(paths.forReading(bundles + "a.bundles/file"),
            (folder / "Library/PreferenceBundles/a.bundles/file").string());
  EXPECT_EQ(paths.forReading(bundles + "b.bundle/file"),
            "/installed/Library/PreferenceBundles/b.bundle/file");
  EXPECT_EQ(paths.forReading(bundles + "a.bundle/../file"), std::nullopt);
}

TEST(DevicePaths, AModuleIsTheInstalledOneWhereABundleOfItsNameIsInstalled) {
  const TemporaryFolder folder;
  const std::string bundles = "/Library/PreferenceBundles/";
  for (const auto* name : {"root", "installed"}) {
    writeBytes(folder / (name + bundles + "a.bundle/module"), name);
  }
  writeBytes(folder / ("root" + bundles + "a.bundle/other"), "");
  writeBytes(folder / ("root" + bundles + "b.bundle/module"), "");
  const auto root = (folder / "root").string();
  const auto library = (folder / "installed/Library").string();
  const DevicePaths paths(root, library);
  EXPECT_EQ(paths.forReading(bundles + "a.bundle/module"), root + bundles + "a.bundle/module");
  for (const uid_t user : {kUser, kRoot}) {
    EXPECT_EQ(paths.forModule(bundles + "a.bundle/module", user),
              library + "/PreferenceBundles/a.bundle/module");
    EXPECT_EQ(paths.forModule(bundles + "a.bundle/other", user),
              library + "/PreferenceBundles/a.bundle/other")
        << "whatever the installed bundle has of that name";
  }
  EXPECT_EQ(paths.forModule(bundles + "b.bundle/module", kUser),
            root + bundles + "b.bundle/module");
  EXPECT_EQ(paths.forModule(bundles + "b.bundle/module", kRoot), std::nullopt);
  for (const auto& path : {bundles + "a.bundle", bundles + "a.bundle/../module", bundles,
                           std::string("/Library/module"), std::string("/User/module")}) {
    EXPECT_EQ(paths.forModule(path, kUser), std::nullopt) << path;
  }
}

TEST(DevicePaths, AModuleOfAGivenBundleIsTheBundlesOwn) {
  const TemporaryFolder folder;
  const std::string bundles = "/Library/PreferenceBundles/";
  const auto root = (folder / "root").string();
  for (const auto& place : {root + bundles, (folder / "installed" / bundles.substr(1)).string(),
                            (folder / "given/").string()}) {
    writeBytes(place + "a.bundle/module", place);
  }
  const auto library = (folder / "installed/Library").string();
  const auto given = (folder / "given/a.bundle").string();
  for (const uid_t user : {kUser, kRoot}) {
    EXPECT_EQ(DevicePaths(root, library, given).forModule(bundles + "a.bundle/module", user),
              given + "/module");
  }
  // In the device root all the same, by whatever name.
  std::filesystem::create_directory_symlink(root + bundles + "a.bundle", folder / "link.bundle");
  for (const auto& [bundle, name] : {std::pair(root + bundles + "a.bundle", "a.bundle"),
                                     {(folder / "link.bundle").string(), "link.bundle"}}) {
    const DevicePaths paths(root, library, bundle);
    EXPECT_EQ(paths.forModule(bundles + name + "/module", kUser), bundle + "/module");
    EXPECT_EQ(paths.forModule(bundles + name + "/module", kRoot), std::nullopt);
  }
}

TEST(DevicePaths, NothingElseIsOfTheDevice) {
  const DevicePaths paths("/data", "/installed/Library");
  for (const std::string path :
       {"", "/", "/etc/passwd", "User/a", "/User", "/Users/a", "/User/../../etc/passwd",
        "/User/a/..", "/Library/../x", "/System/a"}) {
    EXPECT_EQ(paths.forReading(path), std::nullopt) << path;
    EXPECT_EQ(paths.forWriting(path), std::nullopt) << path;
  }
  EXPECT_EQ(paths.forReading(std::string("/User/a\0b", 9)), std::nullopt);
  EXPECT_EQ(paths.forReading("/User/a..b"), "/data/User/a..b");
}

TEST(DevicePaths, TheDefaultRootFollowsTheDesktopsVariables) {
  setenv("HOME", "/home/someone", 1);
  setenv("XDG_DATA_HOME", "/elsewhere", 1);
  EXPECT_EQ(DevicePaths::defaultRoot(), "/elsewhere/quietdial");
  setenv("XDG_DATA_HOME", "relative", 1);
  EXPECT_EQ(DevicePaths::defaultRoot(), "/home/someone/.local/share/quietdial");
  unsetenv("XDG_DATA_HOME");
  EXPECT_EQ(DevicePaths::defaultRoot(), "/home/someone/.local/share/quietdial");
}

TEST(DevicePaths, WithoutAHomeInTheEnvironmentTheAccountsIsTaken) {
  const passwd* const account = getpwuid(getuid());
  ASSERT_TRUE(account);
  unsetenv("XDG_DATA_HOME");
  const std::string expected = std::string(account->pw_dir) + "/.local/share/quietdial";
  unsetenv("HOME");
  EXPECT_EQ(DevicePaths::defaultRoot(), expected);
  setenv("HOME", "relative", 1);
  EXPECT_EQ(DevicePaths::defaultRoot(), expected);
}

TEST(DevicePaths, ARelativeRootIsTakenFromTheWorkingFolder) {
  const TemporaryFolder folder;
  std::filesystem::current_path(folder.path());
  EXPECT_EQ(DevicePaths("root/", "/l").root(), (std::filesystem::current_path() / "root").string());
}
