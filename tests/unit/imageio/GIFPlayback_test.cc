#include <array>
#include <chrono>
#include <deque>
#include <random>
#include <thread>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "tests/unit/imageio/Pictures.h"

using pictures::draw;
using pictures::frames;
using pictures::screen;
using pictures::text;
using pictures::Texts;
using pictures::white;

namespace {

/// Frames of every kind, in runs of one kind and mixed: whole and partial, opaque and not, short of
/// data, undecodable, every disposal.
CGImageSource::Data mixedAnimation(unsigned seed, unsigned count) {
  std::mt19937 random(seed);
  const auto below = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
  // Small canvases are copied otherwise than larger ones.
  const unsigned width = seed % 3 == 0 ? 7 : 41;
  const unsigned height = seed % 3 == 0 ? 5 : 27;
  GIFBuilder gif = screen(width, height);
  unsigned disposal = 0;
  for (unsigned i = 0; i < count; ++i) {
    if (seed % 2 == 0 || below(6) == 0) {
      disposal = below(4);
    }
    const bool isWhole = below(3) == 0;
    GIFBuilder::Image image{.width = width, .height = height, .interlaced = below(4) == 0};
    if (!isWhole) {
      image.left = below(width + 1);
      image.top = below(height + 1);
      image.width = below(width + 1);
      image.height = below(height + 1);
    }
    std::vector<std::uint8_t> stored;
    for (unsigned pixel = 0; pixel < image.width * image.height; ++pixel) {
      stored.push_back(static_cast<std::uint8_t>(below(4)));
    }
    if (below(5) == 0) {
      stored.resize(stored.size() / 2);
    }
    GIFBuilder::Control control{.disposal = disposal};
    if (below(2) == 0) {
      control.transparentIndex = white;
    }
    gif.control(control);
    if (below(12) == 0) {
      gif.descriptor(image).bytes({0, 0});
    } else {
      gif.image(image, 2, stored);
    }
  }
  return gif.trailer().data();
}

CGImageSource::Data partialAnimation(unsigned width, unsigned height, unsigned count,
                                     unsigned disposal = 0) {
  GIFBuilder gif = screen(width, height);
  gif.image({.width = width, .height = height}, 2,
            std::vector<std::uint8_t>(std::size_t{width} * height, 0));
  for (unsigned i = 1; i < count; ++i) {
    gif.control({.disposal = disposal});
    draw(gif, 3 * i % (width - 2), 2 * i % (height - 2), "GB/BG");
  }
  return gif.trailer().data();
}

long pageFaults() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_minflt;
}

TEST(GIFPlayback, AFrameIsTheSameInOrderAndAfterAnyJump) {
  for (unsigned seed = 1; seed <= 60; ++seed) {
    const CGImageSource::Data data = mixedAnimation(seed, 40);
    const Texts inOrder = frames(data);
    ASSERT_EQ(inOrder.size(), 40U);
    const auto source = CGImageSource::createWithData(data);
    std::mt19937 random(seed);
    for (unsigned jump = 0; jump < 60; ++jump) {
      const std::size_t index = random() % inOrder.size();
      EXPECT_EQ(text(source->createImageAtIndex(index)), inOrder[index]) << seed << ' ' << index;
    }
  }
}

TEST(GIFPlayback, EveryFrameIsTheSameAsTheFirstThatIsAskedFor) {
  const CGImageSource::Data data = mixedAnimation(99, 40);
  const Texts inOrder = frames(data);
  for (std::size_t i = 0; i < inOrder.size(); ++i) {
    EXPECT_EQ(text(CGImageSource::createWithData(data)->createImageAtIndex(i)), inOrder[i]) << i;
  }
}

TEST(GIFPlayback, AFrameThatIsHeldDoesNotChangeWhileOthersAreMade) {
  for (const std::size_t held : {1, 2, 5, 8}) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
      const CGImageSource::Data data = mixedAnimation(seed, 30);
      const Texts inOrder = frames(data);
      const auto source = CGImageSource::createWithData(data);
      std::deque<std::pair<std::size_t, std::shared_ptr<const CGImage>>> images;
      for (std::size_t step = 0; step < 3 * inOrder.size(); ++step) {
        const std::size_t index = step % inOrder.size();
        images.emplace_back(index, source->createImageAtIndex(index));
        text(images.back().second);
        for (const auto& [heldIndex, image] : images) {
          ASSERT_EQ(text(image), inOrder[heldIndex]) << seed << ' ' << step;
        }
        if (images.size() > held) {
          images.pop_front();
        }
      }
    }
  }
}

TEST(GIFPlayback, AFrameOutlivesItsSource) {
  auto source = CGImageSource::createWithData(partialAnimation(20, 20, 3));
  const auto decoded = source->createImageAtIndex(1);
  const std::string shown = text(decoded);
  const auto undecoded = source->createImageAtIndex(1);
  source.reset();
  EXPECT_EQ(text(decoded), shown);
  EXPECT_EQ(text(undecoded), shown);
}

TEST(GIFPlayback, ARowIsFourBytesAPixelWithAlphaFirst) {
  const auto image =
      CGImageSource::createWithData(partialAnimation(20, 10, 1))->createImageAtIndex(0);
  EXPECT_EQ(image->width(), 20U);
  EXPECT_EQ(image->height(), 10U);
  EXPECT_EQ(image->bytesPerRow(), 80U);
  EXPECT_EQ(image->alphaInfo(), CGImageAlphaInfo::kPremultipliedFirst);
  EXPECT_EQ(image->pixels()->pixels().size(), 200U);
}

TEST(GIFPlayback, SteadyPlayTakesNoFreshPages) {
  constexpr unsigned width = 480;
  constexpr unsigned height = 874;
  constexpr unsigned count = 30;
  for (const unsigned disposal : {0U, 2U, 3U}) {
    const auto source =
        CGImageSource::createWithData(partialAnimation(width, height, count, disposal));
    for (const std::size_t held : {0, 1, 5, 8}) {
      std::deque<std::shared_ptr<const PixelBuffer>> cache;
      const auto playOnce = [&] {
        for (std::size_t i = 0; i < count; ++i) {
          cache.push_back(source->createImageAtIndex(i)->pixels());
          if (cache.size() > held) {
            cache.pop_front();
          }
        }
      };
      playOnce();
      playOnce();
      const long before = pageFaults();
      playOnce();
      playOnce();
      // A canvas is 410 pages; 60 frames on fresh ones would be 24,600.
      EXPECT_LT(pageFaults() - before, 100) << disposal << ' ' << held;
    }
  }
}

TEST(GIFPlayback, SeveralThreadsGetTheSameFrames) {
  const CGImageSource::Data data = mixedAnimation(7, 40);
  const Texts inOrder = frames(data);
  const auto source = CGImageSource::createWithData(data);
  std::vector<std::thread> threads;
  std::array<Texts, 4> shown;
  for (std::size_t t = 0; t < shown.size(); ++t) {
    threads.emplace_back([&, t] {
      std::shared_ptr<const CGImage> held;
      for (std::size_t i = 0; i < inOrder.size(); ++i) {
        const std::size_t index = t % 2 == 0 ? i : inOrder.size() - 1 - i;
        const auto image = source->createImageAtIndex(index);
        shown[t].push_back(text(image));
        held = image;
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  const Texts backwards(inOrder.rbegin(), inOrder.rend());
  for (std::size_t t = 0; t < shown.size(); ++t) {
    EXPECT_EQ(shown[t], t % 2 == 0 ? inOrder : backwards) << t;
  }
}

TEST(GIFPlayback, MakingASourceAndItsImagesDecodesNothing) {
  // A canvas of the largest size: decoding it even once touches 16,384 pages.
  GIFBuilder gif = screen(4096, 4096);
  for (unsigned i = 0; i < 50; ++i) {
    gif.image({.width = 4096, .height = 4096}, 2, std::vector<std::uint8_t>(100, 1));
  }
  const CGImageSource::Data data = gif.trailer().data();
  const long before = pageFaults();
  const auto source = CGImageSource::createWithData(data);
  for (std::size_t i = 0; i < source->count(); ++i) {
    EXPECT_NE(source->createImageAtIndex(i), nullptr);
  }
  EXPECT_LT(pageFaults() - before, 1000);
}

TEST(GIFPlayback, AClaimOfMorePixelsThanTheMaximumMakesNoSource) {
  GIFBuilder gif = screen(65535, 65535);
  draw(gif, 0, 0, "R");
  EXPECT_EQ(CGImageSource::createWithData(gif.trailer().data()), nullptr);
  GIFBuilder justTooLarge = screen(4096, 4097);
  draw(justTooLarge, 0, 0, "R");
  EXPECT_EQ(CGImageSource::createWithData(justTooLarge.trailer().data()), nullptr);
}

TEST(GIFPlayback, AFrameThatClaimsMorePixelsThanTheMaximumCannotBeDecoded) {
  GIFBuilder gif = screen(2, 1);
  draw(gif, 0, 0, "RR");
  gif.image({.width = 65535, .height = 65535}, 2, pictures::indexes("GGG"));
  draw(gif, 1, 0, "B");
  EXPECT_EQ(frames(gif.trailer()), (Texts{"RR", "none", "RB"}));
}

TEST(GIFPlayback, OnlyThePixelsThatOneReadingMayCompositeAreCounted) {
  // The largest canvas leaves 4,096 frames of 2^36 pixels.
  GIFBuilder gif = screen(4096, 4096);
  for (unsigned i = 0; i < 5000; ++i) {
    gif.descriptor({.width = 4096, .height = 4096}).bytes({2, 0});
  }
  EXPECT_EQ(CGImageSource::createWithData(gif.trailer().data())->count(), 4096U);
}

TEST(GIFPlayback, FramesLargerThanTheCanvasCountWithTheirOwnPixels) {
  GIFBuilder gif = screen(1, 1);
  for (unsigned i = 0; i < 5000; ++i) {
    gif.descriptor({.width = 4096, .height = 4096}).bytes({2, 0});
  }
  EXPECT_EQ(CGImageSource::createWithData(gif.trailer().data())->count(), 4096U);
}

TEST(GIFPlayback, AHundredThousandWholeFramesArePlayedInBoundedTime) {
  for (const unsigned disposal : {0U, 2U, 3U}) {
    GIFBuilder gif = screen(600, 600);
    for (unsigned i = 0; i < 100000; ++i) {
      gif.control({.disposal = disposal, .transparentIndex = white});
      gif.descriptor({.width = 600, .height = 600}).bytes({2, 1, 0x44, 0});
    }
    const CGImageSource::Data data = gif.trailer().data();
    const auto start = std::chrono::steady_clock::now();
    const auto source = CGImageSource::createWithData(data);
    EXPECT_EQ(source->count(), 100000U);
    EXPECT_NE(source->createImageAtIndex(99999)->pixels(), nullptr);
    EXPECT_NE(source->createImageAtIndex(50000)->pixels(), nullptr);
    // In fact tens of milliseconds; the limit leaves room for sanitizers on a busy machine.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30)) << disposal;
  }
}

}  // namespace
