#include "tools/gif/GifCommand.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <png.h>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/GIFBuilder.h"
#include "tools/runCommand.h"

using testing::ElementsAre;

namespace {

constexpr std::array<std::uint8_t, 6> redAndGreen{255, 0, 0, 0, 255, 0};

class GifCommandTest : public testing::Test {
 public:
  GifCommandTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "gif-command-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
  }
  ~GifCommandTest() override { std::filesystem::remove_all(folder_); }

 protected:
  std::string path(const std::string& name) const { return (folder_ / name).string(); }

  std::string write(const std::string& name, const GIFBuilder& gif) const {
    const auto data = gif.data();
    std::ofstream(path(name), std::ios::binary)
        .write(reinterpret_cast<const char*>(data->data()),
               static_cast<std::streamsize>(data->size()));
    return path(name);
  }

  /// Two frames of 2 x 1, only the first with a delay; the second is transparent on the left.
  std::string animation() const {
    GIFBuilder gif(2, 1, redAndGreen);
    gif.control({.disposal = 2, .delay = 3});
    gif.image({.width = 2, .height = 1}, 2, std::array<std::uint8_t, 2>{0, 0});
    gif.image({.left = 1, .width = 1, .height = 1}, 2, std::array<std::uint8_t, 1>{1});
    return write("two.gif", gif.trailer());
  }

  int run(const std::vector<std::string>& arguments) {
    out_.str("");
    err_.str("");
    std::istringstream nothing;
    GifCommand command;
    return runCommand(command, arguments, {nothing, out_, err_});
  }

  std::filesystem::path folder_;
  std::ostringstream out_;
  std::ostringstream err_;
};

TEST_F(GifCommandTest, PrintsSizeFramesAndDelaysAsInTheFileAndAsTheyArePlayed) {
  EXPECT_EQ(run({animation()}), 0);
  EXPECT_EQ(out_.str(), R"({"width":2,"height":1,"frames":2,"unclamped":[0.03,null],)"
                        R"("delays":[0.03,0.03],"posterFrame":0,"optimalCacheSize":2})"
                        "\n");
  EXPECT_EQ(err_.str(), "");
}

TEST_F(GifCommandTest, PrintsTheChecksumOfEachFrameOnRequest) {
  EXPECT_EQ(run({"--checksums", animation()}), 0);
  // sha256sum of FF0000FF FF0000FF, and of 00000000 00FF00FF.
  EXPECT_EQ(out_.str(), R"({"width":2,"height":1,"frames":2,"unclamped":[0.03,null],)"
                        R"("delays":[0.03,0.03],"posterFrame":0,"optimalCacheSize":2,"checksums":[)"
                        R"("42af801193fad22a2c6b98d9fe22f22d9c00f8f927539f65d98a41178fa31142",)"
                        R"("ee1aad47bdd3e4cf83f946c497c25c6c0a5b063ff244feb9102bacb64d6fe9ea"]})"
                        "\n");
}

TEST_F(GifCommandTest, AFrameThatCannotBeDecodedHasNoChecksum) {
  GIFBuilder gif(1, 1, redAndGreen);
  gif.descriptor({.width = 1, .height = 1}).bytes({0, 0});
  gif.image({.width = 1, .height = 1}, 2, std::array<std::uint8_t, 1>{0});
  const std::string file = write("half.gif", gif.trailer());
  EXPECT_EQ(run({file, "--checksums"}), 0);
  EXPECT_THAT(out_.str(), testing::HasSubstr(R"("checksums":[null,")"));
  // Nor can it be played.
  EXPECT_THAT(out_.str(),
              testing::HasSubstr(R"("delays":null,"posterFrame":null,"optimalCacheSize":null)"));
  EXPECT_EQ(run({"--frame", "0", path("0.png"), file}), 1);
  EXPECT_EQ(err_.str(), file + " has no frame 0 that can be decoded.\n");
  EXPECT_EQ(out_.str(), "");
  EXPECT_FALSE(std::filesystem::exists(path("0.png")));
}

TEST_F(GifCommandTest, WritesAFrameAsAPicture) {
  EXPECT_EQ(run({"--frame", "1", path("1.png"), animation()}), 0);
  png_image picture{};
  picture.version = PNG_IMAGE_VERSION;
  ASSERT_NE(png_image_begin_read_from_file(&picture, path("1.png").c_str()), 0);
  EXPECT_EQ(picture.width, 2U);
  EXPECT_EQ(picture.height, 1U);
  picture.format = PNG_FORMAT_RGBA;
  std::vector<unsigned char> bytes(PNG_IMAGE_SIZE(picture));
  ASSERT_NE(png_image_finish_read(&picture, nullptr, bytes.data(), 0, nullptr), 0);
  EXPECT_THAT(bytes, ElementsAre(0, 0, 0, 0, 0, 255, 0, 255));
}

TEST_F(GifCommandTest, AFramePastTheEndOrAPictureThatCannotBeWrittenFails) {
  const std::string file = animation();
  EXPECT_EQ(run({"--frame", "2", path("2.png"), file}), 1);
  EXPECT_EQ(err_.str(), file + " has no frame 2 that can be decoded.\n");
  const std::string picture = path("missing/1.png");
  EXPECT_EQ(run({"--frame", "1", picture, file}), 1);
  EXPECT_EQ(err_.str(), picture + " cannot be written.\n");
  EXPECT_EQ(out_.str(), "");
}

TEST_F(GifCommandTest, AFileThatMakesNoImageFailsWithOneSentence) {
  std::ofstream(path("text.gif")) << "GIF89a, or so it says";
  GIFBuilder broken(1, 1, redAndGreen);
  write("broken.gif", broken.descriptor({.width = 1, .height = 1}));
  for (const char* const name : {"text.gif", "broken.gif"}) {
    EXPECT_EQ(run({path(name)}), 1);
    EXPECT_EQ(err_.str(), path(name) + " is not a GIF with an image in it.\n");
    EXPECT_EQ(out_.str(), "");
  }
}

TEST_F(GifCommandTest, AFileThatCannotBeReadFailsWithOneSentence) {
  for (const std::string& file : {path("none.gif"), folder_.string()}) {
    EXPECT_EQ(run({file}), 1);
    EXPECT_EQ(err_.str(), file + " cannot be read.\n");
    EXPECT_EQ(out_.str(), "");
  }
}

TEST_F(GifCommandTest, WrongUsageIsExplained) {
  const std::string file = animation();
  const std::vector<std::vector<std::string>> wrong{{},
                                                    {"--checksums"},
                                                    {file, file},
                                                    {"--frames", file},
                                                    {"--frame", "x", "p.png", file},
                                                    {"--frame", "-1", "p.png", file},
                                                    {"--frame", "1", file}};
  for (const std::vector<std::string>& arguments : wrong) {
    EXPECT_EQ(run(arguments), 2);
    EXPECT_EQ(err_.str(), "usage: quietdial gif [--checksums] [--frame N PICTURE.png] FILE\n");
    EXPECT_EQ(out_.str(), "");
  }
}

}  // namespace
