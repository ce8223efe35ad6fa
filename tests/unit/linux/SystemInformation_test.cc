#include "linux/SystemInformation.h"

#include <cstdlib>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "linux/propertylist/PropertyListSerialization.h"
#include "tests/support/TemporaryFolder.h"

namespace {

class SystemInformationTest : public testing::Test {
 protected:
  PropertyListDictionary informationFor(std::string_view release) {
    writeBytes(folder_ / "os-release", release);
    return SystemInformation((folder_ / "os-release").string()).deviceInformation();
  }

  static std::string textOf(const PropertyListDictionary& information, const std::string& key) {
    const auto found = information.find(key);
    const auto* text = found == information.end() ? nullptr : found->second.get<std::string>();
    return text ? *text : "";
  }

  TemporaryFolder folder_;
};

}  // namespace

TEST_F(SystemInformationTest, TheSystemIsWhatItsReleaseFileSays) {
  const auto information =
      informationFor("PRETTY_NAME=\"No\"\nNAME=\"Some System\"\nVERSION_ID='12'\nID=x\n");
  EXPECT_EQ(textOf(information, "System"), "Some System");
  EXPECT_EQ(textOf(information, "SystemVersion"), "12");
  EXPECT_TRUE(textOf(information, "Kernel").starts_with("Linux "));
  EXPECT_NE(textOf(information, "Architecture"), "");
}

TEST_F(SystemInformationTest, WhatTheReleaseFileDoesNotTellIsLeftOut) {
  EXPECT_FALSE(informationFor("").contains("System"));
  EXPECT_FALSE(SystemInformation("/nowhere").deviceInformation().contains("SystemVersion"));
  EXPECT_LE(textOf(informationFor("NAME=" + std::string(5000, 'a')), "System").size(), 64U);
}

TEST_F(SystemInformationTest, TheLocaleIsToldUnlessItIsAPath) {
  for (const auto& [value, told] :
       {std::pair("de_DE.UTF-8@euro", "de_DE.UTF-8@euro"), {"/home/somebody/locale", ""}}) {
    setenv("LC_ALL", value, 1);
    EXPECT_EQ(textOf(informationFor(""), "Locale"), told);
  }
}

TEST_F(SystemInformationTest, NothingTellsWhoseMachineItIs) {
  setenv("HOME", "/home/jo.somebody", 1);
  setenv("USER", "jo.somebody", 1);
  setenv("LANG", "jo somebody", 1);
  setenv("LC_ALL", "", 1);
  setenv("LC_MESSAGES", "", 1);
  char host[256] = "";
  gethostname(host, sizeof host - 1);
  const auto bytes = bytesFromPropertyList(informationFor("NAME=x\nHOME_URL=http://jo.somebody\n"));
  ASSERT_TRUE(bytes);
  EXPECT_THAT(*bytes, testing::Not(testing::HasSubstr("somebody")));
  EXPECT_THAT(*bytes, testing::Not(testing::HasSubstr("/home")));
  if (*host) {
    EXPECT_THAT(*bytes, testing::Not(testing::HasSubstr(std::string(">") + host)));
  }
  const auto kernel = textOf(informationFor(""), "Kernel");
  EXPECT_EQ(kernel.find_first_not_of("0123456789.-", 6), std::string::npos)
      << "a name that was given to the kernel is not told: " << kernel;
}
