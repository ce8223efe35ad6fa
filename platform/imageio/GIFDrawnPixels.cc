#include "platform/imageio/GIFDrawnPixels.h"

#include <algorithm>
#include <bit>
#include <new>

namespace {

constexpr std::size_t kBitsInWord = 64;

/// The bits of one word that stand for the pixels from `left` to before `right`, which are counted
/// from the word's first and may lie outside of it on the right.
std::uint64_t bitsBetween(std::size_t left, std::size_t right) {
  const std::uint64_t all = ~std::uint64_t{0};
  return all << left & (right < kBitsInWord ? ~(all << right) : all);
}

/// Calls `visit` with each word of a row that stretches over the pixels, and which bits are theirs.
template <typename Visit>
void forEachWord(std::size_t left, std::size_t right, Visit visit) {
  for (std::size_t at = left; at < right;) {
    const std::size_t word = at / kBitsInWord;
    visit(word, bitsBetween(at % kBitsInWord, right - word * kBitsInWord));
    at = (word + 1) * kBitsInWord;
  }
}

}  // namespace

std::unique_ptr<GIFDrawnPixels> GIFDrawnPixels::create(std::size_t width, std::size_t height,
                                                       bool isTransparent) {
  const std::size_t wordsInRow = (width + kBitsInWord - 1) / kBitsInWord;
  std::unique_ptr<std::uint64_t[]> words(new (std::nothrow) std::uint64_t[wordsInRow * height]);
  if (!words) {
    return nullptr;
  }
  std::fill_n(words.get(), wordsInRow * height, isTransparent ? 0 : ~std::uint64_t{0});
  std::unique_ptr<GIFDrawnPixels> pixels(new GIFDrawnPixels(wordsInRow, std::move(words)));
  pixels->bottom_ = isTransparent ? 0 : height;
  return pixels;
}

void GIFDrawnPixels::add(std::size_t row, std::size_t left, std::size_t count) {
  if (count == 0) {
    return;
  }
  std::uint64_t* const words = words_.get() + row * wordsInRow_;
  forEachWord(left, left + count,
              [words](std::size_t word, std::uint64_t bits) { words[word] |= bits; });
  const bool isFirst = top_ == bottom_;
  top_ = isFirst ? row : std::min(top_, row);
  bottom_ = std::max(bottom_, row + 1);
}

std::size_t GIFDrawnPixels::clear(const GIFRect& rect, PixelBuffer& canvas) {
  std::size_t cleared = 0;
  const std::size_t first = std::max(top_, rect.top);
  const std::size_t last = std::min(bottom_, rect.top + rect.height);
  for (std::size_t y = first; y < last; ++y) {
    std::uint64_t* const words = words_.get() + y * wordsInRow_;
    std::uint32_t* const row = canvas.pixels().data() + y * canvas.width();
    forEachWord(rect.left, rect.left + rect.width, [&](std::size_t word, std::uint64_t bits) {
      std::uint64_t drawn = words[word] & bits;
      words[word] &= ~bits;
      for (std::size_t at = word * kBitsInWord; drawn != 0;) {
        const auto skipped = static_cast<std::size_t>(std::countr_zero(drawn));
        drawn >>= skipped;
        const auto run = static_cast<std::size_t>(std::countr_one(drawn));
        std::fill_n(row + at + skipped, run, 0);
        cleared += run;
        at += skipped + run;
        drawn = run < kBitsInWord ? drawn >> run : 0;
      }
    });
  }
  if (rect.width == canvas.width() && first < last) {
    if (first == top_) {
      top_ = last;
    } else if (last == bottom_) {
      bottom_ = first;
    }
    if (top_ == bottom_) {
      top_ = bottom_ = 0;
    }
  }
  return cleared;
}
