#include "bench/gif/GiflibPlayer.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

int readBytes(GifFileType* gif, GifByteType* to, int count) {
  auto& data = *static_cast<std::span<const std::uint8_t>*>(gif->UserData);
  const std::size_t there = std::min<std::size_t>(static_cast<std::size_t>(count), data.size());
  std::memcpy(to, data.data(), there);
  data = data.subspan(there);
  return static_cast<int>(there);
}

constexpr GraphicsControlBlock noControl{DISPOSAL_UNSPECIFIED, false, 0, NO_TRANSPARENT_COLOR};

}  // namespace

GiflibPlayer::GiflibPlayer(std::span<const std::uint8_t> data)
    : data_(data), control_(noControl), palette_(256) {
  int error = 0;
  gif_ = DGifOpen(&data_, readBytes, &error);
}

GiflibPlayer::~GiflibPlayer() {
  int error = 0;
  DGifCloseFile(gif_, &error);
}

std::size_t GiflibPlayer::pixelCount() const {
  return static_cast<std::size_t>(gif_->SWidth) * static_cast<std::size_t>(gif_->SHeight);
}

bool GiflibPlayer::toImage(GraphicsControlBlock& control) {
  control = noControl;
  GifRecordType record = UNDEFINED_RECORD_TYPE;
  while (DGifGetRecordType(gif_, &record) == GIF_OK && record != TERMINATE_RECORD_TYPE) {
    if (record == IMAGE_DESC_RECORD_TYPE) {
      return DGifGetImageDesc(gif_) == GIF_OK;
    }
    int code = 0;
    GifByteType* block = nullptr;
    if (DGifGetExtension(gif_, &code, &block) != GIF_OK) {
      return false;
    }
    while (block != nullptr) {
      if (code == GRAPHICS_EXT_FUNC_CODE) {
        DGifExtensionToGCB(block[0], block + 1, &control);
      }
      if (DGifGetExtensionNext(gif_, &block) != GIF_OK) {
        return false;
      }
    }
  }
  return false;
}

bool GiflibPlayer::skip(unsigned& delay) {
  GraphicsControlBlock control{};
  if (!toImage(control)) {
    return false;
  }
  delay = static_cast<unsigned>(control.DelayTime);
  int size = 0;
  GifByteType* block = nullptr;
  if (DGifGetCode(gif_, &size, &block) != GIF_OK) {
    return false;
  }
  while (block != nullptr) {
    if (DGifGetCodeNext(gif_, &block) != GIF_OK) {
      return false;
    }
  }
  return true;
}

void GiflibPlayer::dispose(std::span<std::uint32_t> canvas) {
  if (control_.DisposalMode == DISPOSE_PREVIOUS) {
    std::ranges::copy(saved_, canvas.begin());
  } else if (control_.DisposalMode == DISPOSE_BACKGROUND) {
    for (int y = top_; y < std::min(top_ + height_, gif_->SHeight); ++y) {
      std::fill_n(canvas.data() + std::ptrdiff_t{y} * gif_->SWidth + left_, width_, 0);
    }
  }
}

void GiflibPlayer::drawRow(std::span<std::uint32_t> canvas, int row) {
  DGifGetLine(gif_, line_.data(), gif_->Image.Width);
  if (top_ + row >= gif_->SHeight) {
    return;
  }
  std::uint32_t* const to = canvas.data() + std::ptrdiff_t{top_ + row} * gif_->SWidth + left_;
  if (control_.TransparentColor == NO_TRANSPARENT_COLOR) {
    for (int x = 0; x < width_; ++x) {
      to[x] = palette_[line_[static_cast<std::size_t>(x)]];
    }
    return;
  }
  for (int x = 0; x < width_; ++x) {
    const GifByteType index = line_[static_cast<std::size_t>(x)];
    if (index != control_.TransparentColor) {
      to[x] = palette_[index];
    }
  }
}

bool GiflibPlayer::next(std::span<std::uint32_t> canvas) {
  GraphicsControlBlock control{};
  if (!toImage(control)) {
    return false;
  }
  dispose(canvas);
  control_ = control;
  const GifImageDesc& image = gif_->Image;
  left_ = std::min(image.Left, gif_->SWidth);
  top_ = image.Top;
  width_ = std::min(image.Width, gif_->SWidth - left_);
  height_ = image.Height;
  line_.resize(static_cast<std::size_t>(image.Width));
  const ColorMapObject* map = image.ColorMap != nullptr ? image.ColorMap : gif_->SColorMap;
  for (int i = 0; i < map->ColorCount; ++i) {
    const GifColorType& colour = map->Colors[i];
    palette_[static_cast<std::size_t>(i)] =
        0xFF000000 | static_cast<std::uint32_t>(colour.Red) << 16 |
        static_cast<std::uint32_t>(colour.Green) << 8 | colour.Blue;
  }
  if (control_.DisposalMode == DISPOSE_PREVIOUS) {
    saved_.assign(canvas.begin(), canvas.end());
  }
  if (image.Interlace) {
    constexpr std::array<int, 4> starts{0, 4, 2, 1};
    constexpr std::array<int, 4> steps{8, 8, 4, 2};
    for (std::size_t pass = 0; pass < starts.size(); ++pass) {
      for (int row = starts[pass]; row < height_; row += steps[pass]) {
        drawRow(canvas, row);
      }
    }
  } else {
    for (int row = 0; row < height_; ++row) {
      drawRow(canvas, row);
    }
  }
  return true;
}
