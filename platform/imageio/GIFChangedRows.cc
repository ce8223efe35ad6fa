#include "platform/imageio/GIFChangedRows.h"

#include <algorithm>

void GIFChangedRows::clear() {
  std::fill_n(rows_.data() + top_, bottom_ - top_, Stretch{});
  top_ = bottom_ = 0;
}

void GIFChangedRows::add(const GIFRect& rect) {
  if (rect.area() == 0) {
    return;
  }
  rows_.resize(height_);
  const auto begin = static_cast<std::uint16_t>(rect.left);
  const auto end = static_cast<std::uint16_t>(rect.left + rect.width);
  Stretch* const rows = rows_.data();
  for (std::size_t y = rect.top; y < rect.top + rect.height; ++y) {
    Stretch& row = rows[y];
    const bool isEmpty = row.begin == row.end;
    row = {isEmpty ? begin : std::min(row.begin, begin), isEmpty ? end : std::max(row.end, end)};
  }
  const bool isFirst = top_ == bottom_;
  top_ = isFirst ? rect.top : std::min(top_, rect.top);
  bottom_ = std::max(bottom_, rect.top + rect.height);
}

void GIFChangedRows::addAll() {
  add({.left = 0, .top = 0, .width = width_, .height = height_});
}

void GIFChangedRows::subtract(const GIFRect& rect) {
  const auto begin = static_cast<std::uint16_t>(rect.left);
  const auto end = static_cast<std::uint16_t>(rect.left + rect.width);
  Stretch* const rows = rows_.data();
  const std::size_t bottom = std::min(bottom_, rect.top + rect.height);
  for (std::size_t y = std::max(top_, rect.top); y < bottom; ++y) {
    Stretch& row = rows[y];
    if (begin <= row.begin) {
      row.begin = std::clamp(end, row.begin, row.end);
    } else if (row.end <= end) {
      row.end = std::clamp(begin, row.begin, row.end);
    }
  }
}

std::size_t GIFChangedRows::copy(const PixelBuffer& from, PixelBuffer& to) const {
  const std::uint32_t* source = from.pixels().data() + top_ * width_;
  std::uint32_t* target = to.pixels().data() + top_ * width_;
  const Stretch* const rows = rows_.data();
  std::size_t copied = 0;
  for (std::size_t y = top_; y < bottom_;) {
    // Whole rows are one move together.
    std::size_t whole = 0;
    while (y + whole < bottom_ && rows[y + whole].begin == 0 && rows[y + whole].end == width_) {
      ++whole;
    }
    if (whole > 0) {
      std::copy_n(source, whole * width_, target);
      copied += whole * width_;
    } else {
      const Stretch row = rows[y];
      std::copy_n(source + row.begin, row.end - row.begin, target + row.begin);
      copied += row.end - row.begin;
    }
    const std::size_t done = std::max<std::size_t>(1, whole);
    y += done;
    source += done * width_;
    target += done * width_;
  }
  return copied;
}
