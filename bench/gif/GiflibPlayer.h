#pragma once

#include <cstddef>
#include <cstdint>
#include <gif_lib.h>
#include <span>
#include <vector>

/// A player on giflib as one would write it: a row at a time, drawn into one 32-bit canvas.
class GiflibPlayer {
 public:
  explicit GiflibPlayer(std::span<const std::uint8_t> data);
  ~GiflibPlayer();
  GiflibPlayer(const GiflibPlayer&) = delete;
  GiflibPlayer& operator=(const GiflibPlayer&) = delete;

  std::size_t pixelCount() const;

  /// Composites the next frame. False after the last one. The canvas is `pixelCount()` pixels,
  /// transparent at first, and keeps its contents between calls.
  bool next(std::span<std::uint32_t> canvas);

  /// Passes over the next frame without decoding it. False after the last one.
  bool skip(unsigned& delay);

 private:
  bool toImage(GraphicsControlBlock& control);
  void dispose(std::span<std::uint32_t> canvas);
  void drawRow(std::span<std::uint32_t> canvas, int row);

  std::span<const std::uint8_t> data_;
  GifFileType* gif_ = nullptr;
  GraphicsControlBlock control_{};
  int left_ = 0, top_ = 0, width_ = 0, height_ = 0;
  std::vector<GifByteType> line_;
  std::vector<std::uint32_t> palette_;
  std::vector<std::uint32_t> saved_;
};
