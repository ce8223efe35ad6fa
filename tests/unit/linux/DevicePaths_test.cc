#include "linux/DevicePaths.h"

#include <cstdlib>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

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

TEST(DevicePaths, ARelativeRootIsTakenFromTheWorkingFolder) {
  const TemporaryFolder folder;
  std::filesystem::current_path(folder.path());
  EXPECT_EQ(DevicePaths("root/", "/l").root(), (std::filesystem::current_path() / "root").string());
}
