#include "platform/imageio/GIFChangedRows.h"

#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

constexpr std::size_t width = 6;
constexpr std::size_t height = 4;

/// Copies over a canvas of dots what the other one has: `x` where it was copied.
std::string copied(const GIFChangedRows& rows) {
  const auto from = PixelBuffer::create(width, height);
  const auto to = PixelBuffer::create(width, height);
  std::ranges::fill(from->pixels(), 'x');
  std::ranges::fill(to->pixels(), '.');
  rows.copy(*from, *to);
  std::string text;
  for (std::size_t i = 0; i < width * height; ++i) {
    text += i > 0 && i % width == 0 ? "/" : "";
    text += static_cast<char>(to->pixels()[i]);
  }
  return text;
}

TEST(GIFChangedRows, NothingIsCopiedAtFirst) {
  EXPECT_EQ(copied({width, height}), "....../....../....../......");
}

TEST(GIFChangedRows, EachRowIsCopiedFromItsFirstToItsLastChange) {
  GIFChangedRows rows(width, height);
  rows.add({.left = 0, .top = 1, .width = 1, .height = 2});
  rows.add({.left = 3, .top = 2, .width = 2, .height = 2});
  EXPECT_EQ(copied(rows), "....../x...../xxxxx./...xx.");
}

TEST(GIFChangedRows, WholeRowsAndOthersAreCopiedAlike) {
  GIFChangedRows rows(width, height);
  rows.add({.left = 0, .top = 0, .width = width, .height = 2});
  rows.add({.left = 1, .top = 3, .width = 1, .height = 1});
  EXPECT_EQ(copied(rows), "xxxxxx/xxxxxx/....../.x....");
  rows.addAll();
  EXPECT_EQ(copied(rows), "xxxxxx/xxxxxx/xxxxxx/xxxxxx");
}

TEST(GIFChangedRows, ARectangleOfNoAreaChangesNothing) {
  GIFChangedRows rows(width, height);
  rows.add({.left = 6, .top = 1, .width = 0, .height = 2});
  rows.add({.left = 1, .top = 4, .width = 2, .height = 0});
  EXPECT_EQ(copied(rows), "....../....../....../......");
}

TEST(GIFChangedRows, WhatIsTakenOutAtAnEndIsNotCopied) {
  GIFChangedRows rows(width, height);
  rows.addAll();
  rows.subtract({.left = 0, .top = 0, .width = 2, .height = 1});
  rows.subtract({.left = 3, .top = 1, .width = 3, .height = 1});
  rows.subtract({.left = 0, .top = 2, .width = 6, .height = 1});
  rows.subtract({.left = 2, .top = 3, .width = 2, .height = 1});
  EXPECT_EQ(copied(rows), "..xxxx/xxx.../....../xxxxxx");
}

TEST(GIFChangedRows, ClearedTheyStartAnew) {
  GIFChangedRows rows(width, height);
  rows.addAll();
  rows.subtract({.left = 0, .top = 0, .width = 6, .height = 1});
  rows.clear();
  EXPECT_EQ(copied(rows), "....../....../....../......");
  rows.add({.left = 2, .top = 0, .width = 1, .height = 1});
  EXPECT_EQ(copied(rows), "..x.../....../....../......");
}

TEST(GIFChangedRows, NoChangeIsEverLeftOut) {
  std::mt19937 random(1);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  for (int round = 0; round < 300; ++round) {
    GIFChangedRows rows(width, height);
    std::string needed(width * height, '.');
    for (int step = 0; step < 6; ++step) {
      GIFRect rect{.left = below(width), .top = below(height), .width = 0, .height = 0};
      rect.width = below(width - rect.left + 1);
      rect.height = below(height - rect.top + 1);
      const bool adds = below(3) != 0;
      adds ? rows.add(rect) : rows.subtract(rect);
      for (std::size_t y = rect.top; y < rect.top + rect.height; ++y) {
        for (std::size_t x = rect.left; x < rect.left + rect.width; ++x) {
          needed[y * width + x] = adds ? 'x' : '.';
        }
      }
    }
    std::string all = copied(rows);
    std::erase(all, '/');
    for (std::size_t i = 0; i < all.size(); ++i) {
      EXPECT_TRUE(all[i] == 'x' || needed[i] == '.') << round << ' ' << i;
    }
  }
}

}  // namespace
