#include "settings/program/Options.h"

#include <algorithm>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr int kRefused = 2;

using Arguments = std::vector<const char*>;

class OptionsTest : public testing::Test {
 protected:
  // What the program ends with, or nothing; what it says is kept.
  std::optional<int> parse(Options& into, Arguments arguments) {
    arguments.insert(arguments.begin(), "quietdial-settings");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const auto status = into.parse(static_cast<int>(arguments.size()), arguments.data());
    output = testing::internal::GetCapturedStdout();
    complaint = testing::internal::GetCapturedStderr();
    return status;
  }
  // Options of somebody who may use the program, whoever runs the test.
  bool accepts(Options& into, Arguments arguments) {
    arguments.emplace_back("--allow-root");
    return !parse(into, std::move(arguments)) && output.empty() && complaint.empty();
  }
  bool accepts(Arguments arguments) { return accepts(options, std::move(arguments)); }
  bool wouldAccept(Arguments arguments) {
    Options others;
    return accepts(others, std::move(arguments));
  }
  // With one line that says why.
  bool wouldRefuse(Arguments arguments) {
    Options others;
    return parse(others, std::move(arguments)) == kRefused && output.empty() &&
           std::ranges::count(complaint, '\n') == 1;
  }

  Options options;
  std::string output;
  std::string complaint;
};

TEST_F(OptionsTest, WithoutArgumentsAWindowOpensAsTheDesktopPrefers) {
  ASSERT_TRUE(accepts({}));
  EXPECT_EQ(options.start.size, QSize(375, 667));
  EXPECT_EQ(options.start.scale, 0);
  EXPECT_EQ(options.start.refreshRate, 0);
  EXPECT_EQ(options.start.renderer, StartOptions::Renderer::kSoftware);
  EXPECT_EQ(options.start.scheme, Appearance::Scheme::kSystem);
  EXPECT_EQ(options.start.motion, Appearance::Motion::kSystem);
  EXPECT_EQ(options.start.direction, Appearance::Direction::kSystem);
  EXPECT_EQ(options.start.textSize, UIContentSizeCategory::kLarge);
  EXPECT_TRUE(options.start.webEngine);
  EXPECT_TRUE(options.start.hosts.empty());
  EXPECT_FALSE(options.start.isPicture);
  EXPECT_TRUE(options.hasEffects);
  EXPECT_EQ(options.start.root + options.pane + options.gif + options.screenshot, "");
  EXPECT_EQ(options.bundles.folder, "");
  EXPECT_EQ(options.bundles.badge, std::nullopt);
}

TEST_F(OptionsTest, EachOptionIsTaken) {
  ASSERT_TRUE(accepts({"--root",
                       "/device",
                       "--size=414x896",
                       "--scale",
                       "1.5",
                       "--refresh-rate",
                       "120",
                       "--renderer",
                       "gpu",
                       "--appearance",
                       "dark",
                       "--motion",
                       "full",
                       "--direction",
                       "rtl",
                       "--text-size",
                       "ax5",
                       "--no-web-engine",
                       "--pane",
                       "QDPane",
                       "--gif",
                       "a.gif",
                       "--effects",
                       "none",
                       "--entry-badge",
                       ""}));
  EXPECT_EQ(options.start.root, "/device");
  EXPECT_EQ(options.start.size, QSize(414, 896));
  EXPECT_EQ(options.start.scale, 1.5);
  EXPECT_EQ(options.start.refreshRate, 120);
  EXPECT_EQ(options.start.renderer, StartOptions::Renderer::kGPU);
  EXPECT_EQ(options.start.scheme, Appearance::Scheme::kDark);
  EXPECT_EQ(options.start.motion, Appearance::Motion::kFull);
  EXPECT_EQ(options.start.direction, Appearance::Direction::kRightToLeft);
  EXPECT_EQ(options.start.textSize, UIContentSizeCategory::kLargest);
  EXPECT_FALSE(options.start.webEngine);
  EXPECT_TRUE(options.start.allowRoot);
  EXPECT_EQ(options.pane, "QDPane");
  EXPECT_EQ(options.gif, "a.gif");
  EXPECT_FALSE(options.hasEffects);
  EXPECT_EQ(options.bundles.badge, "");
}

TEST_F(OptionsTest, OfAnOptionThatIsGivenAgainTheLastOneCounts) {
  ASSERT_TRUE(accepts({"--size", "400x400", "--appearance", "dark", "--root=/a", "--scale", "2",
                       "--size=320x568", "--appearance=light", "--root", "/b", "--scale=3"}));
  EXPECT_EQ(options.start.size, QSize(320, 568));
  EXPECT_EQ(options.start.scheme, Appearance::Scheme::kLight);
  EXPECT_EQ(options.start.root, "/b");
  EXPECT_EQ(options.start.scale, 3);
}

TEST_F(OptionsTest, EveryHostThatIsMappedCounts) {
  ASSERT_TRUE(accepts({"--map-host", "a.example=127.0.0.1:1", "--map-host=b.example=[::1]:2"}));
  ASSERT_TRUE(options.start.hosts.find("a.example"));
  EXPECT_EQ(options.start.hosts.find("a.example")->text(), "127.0.0.1:1");
  ASSERT_TRUE(options.start.hosts.find("b.example"));
  EXPECT_EQ(options.start.hosts.find("b.example")->port, 2);
}

TEST_F(OptionsTest, APictureHasNoEffects) {
  ASSERT_TRUE(accepts({"--screenshot", "a.png"}));
  EXPECT_TRUE(options.start.isPicture);
  EXPECT_EQ(options.screenshot, "a.png");
  EXPECT_FALSE(options.hasEffects);
  EXPECT_TRUE(wouldRefuse({"--screenshot", "a.png", "--effects", "real"}));
  EXPECT_TRUE(wouldAccept({"--screenshot", "a.png", "--effects", "none"}));
}

TEST_F(OptionsTest, NumbersAndSizesHaveLimits) {
  for (const char* size : {"200x200", "4000x4000"}) {
    EXPECT_TRUE(wouldAccept({"--size", size})) << size;
  }
  for (const char* size : {"199x400", "400x199", "4001x400", "400x4001", "400", "400x", "x400",
                           "400x400x400", "-400x400", "400X400", " 400x400", "tall", ""}) {
    EXPECT_TRUE(wouldRefuse({"--size", size})) << size;
  }
  for (const char* scale : {"0.5", "8"}) {
    EXPECT_TRUE(wouldAccept({"--scale", scale})) << scale;
  }
  for (const char* scale : {"0.49", "8.01", "0", "-1", "nan", "inf", "2x", "", "two"}) {
    EXPECT_TRUE(wouldRefuse({"--scale", scale})) << scale;
  }
  for (const char* rate : {"1", "1000"}) {
    EXPECT_TRUE(wouldAccept({"--refresh-rate", rate})) << rate;
  }
  for (const char* rate : {"0.9", "1001", "fast"}) {
    EXPECT_TRUE(wouldRefuse({"--refresh-rate", rate})) << rate;
  }
}

TEST_F(OptionsTest, UnusableArgumentsAreRefusedInOneLine) {
  const std::vector<Arguments> unusable{{"--bogus"},
                                        {"word"},
                                        {"--renderer", "crayon"},
                                        {"--effects", "some"},
                                        {"--appearance", ""},
                                        {"--motion", ""},
                                        {"--text-size", "huge"},
                                        {"--direction", "up"},
                                        {"--root", ""},
                                        {"--gif", ""},
                                        {"--screenshot", ""},
                                        {"--pane", ""},
                                        {"--pane"},
                                        {"--map-host", "a"},
                                        {"--map-host", "a=b"},
                                        {"--map-host", "a=127.0.0.1:1", "b=127.0.0.1:1"}};
  for (const auto& arguments : unusable) {
    EXPECT_TRUE(wouldRefuse(arguments)) << arguments.front();
  }
}

TEST_F(OptionsTest, ABundleIsAFolderOfThatKind) {
  const TemporaryFolder folder;
  const std::string bundle = folder / "A.bundle";
  std::filesystem::create_directory(bundle);
  EXPECT_TRUE(accepts({"--bundle", (bundle + "/").c_str()}));
  EXPECT_EQ(options.bundles.folder, bundle);
  writeBytes(folder / "File.bundle", "");
  for (const std::string& other :
       {std::string(), folder.path().string(), (folder / "None.bundle").string(),
        (folder / "File.bundle").string()}) {
    EXPECT_TRUE(wouldRefuse({"--bundle", other.c_str()})) << other;
    EXPECT_THAT(complaint, HasSubstr("is no folder whose name ends in \".bundle\""));
  }
}

TEST_F(OptionsTest, HelpAndVersionEndTheProgramWell) {
  EXPECT_EQ(parse(options, {"--help"}), 0);
  for (const char* option :
       {"--root",       "--bundle",     "--pane",          "--entry-badge", "--size",
        "--scale",      "--screenshot", "--renderer",      "--appearance",  "--text-size",
        "--motion",     "--direction",  "--effects",       "--gif",         "--refresh-rate",
        "--allow-root", "--map-host",   "--no-web-engine", "--help",        "--version"}) {
    EXPECT_THAT(output, HasSubstr(option));
  }
  EXPECT_EQ(parse(options, {"--version"}), 0);
  EXPECT_THAT(output, StartsWith("quietdial-settings "));
  EXPECT_EQ(complaint, "");
}

TEST_F(OptionsTest, RootIsTurnedAwayUnlessItSaysThatItKnows) {
  const auto status = parse(options, {});
  if (geteuid() == 0) {
    EXPECT_EQ(status, 1);
    EXPECT_THAT(complaint, HasSubstr("This is not meant for root"));
  } else {
    EXPECT_EQ(status, std::nullopt);
    EXPECT_EQ(complaint, "");
  }
}

}  // namespace
