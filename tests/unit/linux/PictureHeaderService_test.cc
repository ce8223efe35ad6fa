#include "linux/PictureHeaderService.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/TemporaryFolder.h"

namespace {

std::string png(const std::string& size) {
  return std::string("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16) + size + "\x08\x06";
}

class PictureHeaders : public testing::Test {
 protected:
  std::optional<CGSize> sizeOf(const std::string& bytes) {
    writeBytes(folder_ / "User/p", bytes);
    return pictures_.pixelSize("/User/p");
  }

  TemporaryFolder folder_;
  PictureHeaderService pictures_{std::make_shared<DevicePaths>(folder_.path(), folder_ / "l")};
};

void expectSize(const std::optional<CGSize>& size, double width, double height) {
  ASSERT_TRUE(size);
  EXPECT_EQ(size->width, width);
  EXPECT_EQ(size->height, height);
}

}  // namespace

TEST_F(PictureHeaders, SizesAreThoseOfTheHeader) {
  expectSize(sizeOf(png(std::string("\0\x01\x02\x03\0\0\0\x50", 8))), 66051, 80);
  expectSize(sizeOf(std::string("GIF89a\x2C\x01\x02\x00", 10)), 300, 2);
  expectSize(sizeOf(std::string("GIF87a\x01\x00\xFF\xFF", 10)), 1, 65535);
}

TEST_F(PictureHeaders, WhatIsNoWholeHeaderHasNoSize) {
  const auto whole = png(std::string("\0\0\0\x01\0\0\0\x01", 8));
  for (std::size_t length = 0; length < 24; ++length) {
    EXPECT_FALSE(sizeOf(whole.substr(0, length))) << length;
  }
  EXPECT_TRUE(sizeOf(whole.substr(0, 24)));
  EXPECT_FALSE(sizeOf("GIF90a\x01\x01\x01\x01"));
  EXPECT_FALSE(sizeOf(std::string("GIF89a\x01\x00\x01", 9)));
  EXPECT_FALSE(sizeOf(png(std::string(8, '\0'))));
  EXPECT_FALSE(sizeOf(png("\x80\x01\x01\x01\x01\x01\x01\x01")));
}

TEST_F(PictureHeaders, OnlyFilesHaveASize) {
  EXPECT_FALSE(pictures_.pixelSize("/User/none"));
  EXPECT_FALSE(pictures_.pixelSize("/etc/passwd"));
  std::filesystem::create_directories(folder_ / "User/folder");
  EXPECT_FALSE(pictures_.pixelSize("/User/folder"));
  ASSERT_EQ(mkfifo((folder_ / "User/pipe").c_str(), 0600), 0);
  EXPECT_FALSE(pictures_.pixelSize("/User/pipe"));
}
