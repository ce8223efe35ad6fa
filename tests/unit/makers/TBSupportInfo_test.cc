#include "platform/makers/TBSupportInfo.h"

#include "tests/support/PaneTest.h"

namespace {

constexpr const char* kPackage = "me.orlanvey.quietdial";

class SupportInfoTest : public PaneTest {
 protected:
  std::shared_ptr<TBSupportInfo> info() {
    auto object = alloc<TBSupportInfo>();
    EXPECT_TRUE(object->initWithPackageFilePath(kBundle));
    return object;
  }
  PropertyListDictionary& package() { return files->dictionaries[bundleFile("Info.plist")]; }
};

TEST_F(SupportInfoTest, TheSubjectNamesThePackageItsVersionAndIdentifier) {
  package() = {{"CFBundleName", "QuietDial"}, {"CFBundleShortVersionString", "1.2"}};
  EXPECT_EQ(info()->mailSubjectForPackageIdentifier(kPackage),
            "QuietDial 1.2 (me.orlanvey.quietdial)");
}

TEST_F(SupportInfoTest, WhatThePackageDoesNotTellIsLeftOutOfTheSubject) {
  EXPECT_EQ(info()->mailSubjectForPackageIdentifier(kPackage), kPackage);
  package() = {{"CFBundleName", "QuietDial"}, {"CFBundleShortVersionString", 12}};
  EXPECT_EQ(info()->mailSubjectForPackageIdentifier(kPackage), "QuietDial (me.orlanvey.quietdial)");
  package() = {{"CFBundleShortVersionString", "1.2"}};
  EXPECT_EQ(info()->mailSubjectForPackageIdentifier(kPackage), "1.2 (me.orlanvey.quietdial)");
}

TEST_F(SupportInfoTest, TheAttachmentHoldsPackageDeviceAndSettingsAndNothingElse) {
  package() = {{"CFBundleIdentifier", kPackage},
               {"CFBundleName", "QuietDial"},
               {"CFBundleShortVersionString", "1.2"},
               {"TBSupportPreferenceKeys", PropertyListArray{"dialerMode", "absent", 7, "list"}}};
  store("dialerMode", 2);
  store("list", PropertyListArray{1, "a"});
  store("dialerModeX", "of someone else");
  store("7", "of someone else");
  EXPECT_EQ(info()->supportAttachmentDataForPreferencePath(kSettings).size(), 2U);
  const PropertyListDictionary expected{
      {"Package",
       PropertyListDictionary{{"Identifier", kPackage}, {"Name", "QuietDial"}, {"Version", "1.2"}}},
      {"Device", PropertyListDictionary{{"System", "Stand-in"}, {"SystemVersion", "1"}}},
      {"Settings", PropertyListDictionary{{"dialerMode", 2}, {"list", PropertyListArray{1, "a"}}}}};
  EXPECT_EQ(files->lastSerialized, expected);
}

TEST_F(SupportInfoTest, APackageThatNamesNoKeysTellsNoSettings) {
  store("dialerMode", 2);
  info()->supportAttachmentDataForPreferencePath(kSettings);
  EXPECT_EQ(files->lastSerialized.at("Settings"), PropertyListValue(PropertyListDictionary{}));
}

TEST_F(SupportInfoTest, WithoutASettingsFileTheRestIsTold) {
  info()->supportAttachmentDataForPreferencePath(kSettings);
  EXPECT_TRUE(files->lastSerialized.contains("Device"));
  EXPECT_FALSE(files->lastSerialized.contains("Settings"));
}

// Files that hold no more than two entries.
class NarrowFiles : public MemoryFiles {
 public:
  std::optional<PropertyListData> dataWithPropertyList(
      const PropertyListDictionary& dictionary) const override {
    return dictionary.size() > 2 ? std::nullopt : MemoryFiles::dataWithPropertyList(dictionary);
  }
};

TEST_F(SupportInfoTest, SettingsThatNoFileCanHoldAreLeftOut) {
  const auto narrow = std::make_shared<NarrowFiles>();
  narrow->dictionaries[bundleFile("Info.plist")] = {
      {"TBSupportPreferenceKeys", PropertyListArray{"a"}}};
  narrow->dictionaries[kSettings] = {{"a", 1}};
  auto changed = services();
  changed.files = narrow;
  installServices(changed);
  EXPECT_FALSE(info()->supportAttachmentDataForPreferencePath(kSettings).empty());
  EXPECT_FALSE(narrow->lastSerialized.contains("Settings"));
}

}  // namespace
