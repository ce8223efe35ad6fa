#include "linux/lines/PhoneLinks.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace {

constexpr const char* kList = "config/mimeapps.list";
constexpr const char* kOwnEntry = "data/applications/me.orlanvey.QuietDial.Dialler.desktop";
constexpr const char* kOwnLine = "x-scheme-handler/tel=me.orlanvey.QuietDial.Dialler.desktop\n";

// A desktop of a test's own, asked by the real xdg-mime.
class PhoneLinksTest : public testing::Test {
 protected:
  PhoneLinksTest() {
    setenv("HOME", folder.path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", (folder / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
    setenv("XDG_DATA_DIRS", (folder / "system").c_str(), 1);
    setenv("XDG_CONFIG_DIRS", (folder / "system").c_str(), 1);
    unsetenv("XDG_CURRENT_DESKTOP");
    unsetenv("DESKTOP_SESSION");
    unsetenv("KDE_FULL_SESSION");
    unsetenv("GNOME_DESKTOP_SESSION_ID");
  }

  void install(const std::string& id, const std::string& name) {
    writeBytes(folder / ("data/applications/" + id),
               "[Desktop Entry]\nType=Application\nName=" + name +
                   "\nExec=/bin/true %u\nMimeType=x-scheme-handler/tel;\n");
  }
  std::string read(const std::string& name) const {
    std::ifstream file(folder / name);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const PhoneLinks& links() {
    if (!links_) {
      links_.emplace(program);
    }
    return *links_;
  }

  TemporaryFolder folder;
  std::string program = "/bin/true";

 private:
  std::optional<PhoneLinks> links_;  // made in the test's own environment
};

TEST_F(PhoneLinksTest, TakesTheLinksAndGivesThemBackLeavingAllElse) {
  install("a.desktop", "A Dialler");
  const std::string before =
      "# mine\n[Added Associations]\nx-scheme-handler/tel=b.desktop;\n\n[Default Applications]\n"
      "text/html=web.desktop\nx-scheme-handler/tel=a.desktop\n[Other]\nx=y\n";
  writeBytes(folder / kList, before);
  EXPECT_EQ(links().handler(), "a.desktop");
  EXPECT_EQ(PhoneLinks::nameOf("a.desktop"), "A Dialler");
  ASSERT_TRUE(links().take());
  EXPECT_TRUE(links().areOurs());
  EXPECT_EQ(links().handlerBesidesOurs(), "a.desktop");
  const std::string taken = read(kList);
  EXPECT_NE(taken.find(kOwnLine), std::string::npos);
  EXPECT_NE(taken.find("[Added Associations]\nx-scheme-handler/tel=b.desktop;"
                       "me.orlanvey.QuietDial.Dialler.desktop;\n"),
            std::string::npos);
  ASSERT_TRUE(links().take());
  EXPECT_EQ(links().handlerBesidesOurs(), "a.desktop");
  ASSERT_TRUE(links().giveBack());
  EXPECT_EQ(links().handler(), "a.desktop");
  EXPECT_EQ(read("config/quietdial/phone-links"), "");
  // Its line may have another place in its group.
  EXPECT_EQ(read(kList),
            "# mine\n[Added Associations]\nx-scheme-handler/tel=b.desktop;\n\n[Default "
            "Applications]\nx-scheme-handler/tel=a.desktop\ntext/html=web.desktop\n[Other]\nx=y\n");
}

TEST_F(PhoneLinksTest, WhereItIsTheOnlyOneNothingIsLeftBehind) {
  EXPECT_EQ(links().handler(), "");
  ASSERT_TRUE(links().take());
  EXPECT_TRUE(links().areOurs());
  EXPECT_EQ(links().handlerBesidesOurs(), "");
  EXPECT_NE(read(kOwnEntry).find("Exec=/bin/true %u\n"), std::string::npos);
  ASSERT_TRUE(links().giveBack());
  EXPECT_EQ(links().handler(), "");
  EXPECT_EQ(read(kList), "");
  EXPECT_FALSE(std::filesystem::exists(folder / kOwnEntry));
}

TEST_F(PhoneLinksTest, AProgramThatTheDesktopWouldNotFindTakesNothing) {
  program = "/opt/a b/dialler";
  EXPECT_FALSE(links().take());
  EXPECT_EQ(read(kList), "");
  EXPECT_FALSE(std::filesystem::exists(folder / kOwnEntry));
}

TEST_F(PhoneLinksTest, AnInstalledEntryIsUsedAndStays) {
  install(PhoneLinks::kOwnEntry, "QuietDial");
  const auto before = read(kOwnEntry);
  ASSERT_TRUE(links().take());
  ASSERT_TRUE(links().giveBack());
  EXPECT_EQ(read(kOwnEntry), before);
}

TEST_F(PhoneLinksTest, WhatAnotherProgramHasTakenMeanwhileStaysThere) {
  install("a.desktop", "A");
  install("c.desktop", "C");
  writeBytes(folder / kList, "[Default Applications]\nx-scheme-handler/tel=a.desktop\n");
  ASSERT_TRUE(links().take());
  writeBytes(folder / kList, "[Default Applications]\nx-scheme-handler/tel=c.desktop\n");
  EXPECT_FALSE(links().areOurs());
  EXPECT_EQ(links().handlerBesidesOurs(), "c.desktop");
  ASSERT_TRUE(links().giveBack());
  EXPECT_EQ(links().handler(), "c.desktop");
  EXPECT_EQ(read(kList), "[Default Applications]\nx-scheme-handler/tel=c.desktop\n");
}

TEST_F(PhoneLinksTest, AListThatCannotBeReadIsLeftAlone) {
  std::filesystem::create_directories(folder / kList);
  EXPECT_FALSE(links().take());
  EXPECT_FALSE(links().giveBack());
  EXPECT_TRUE(std::filesystem::is_directory(folder / kList));
}

}  // namespace
