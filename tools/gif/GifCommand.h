#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "tools/Command.h"

class CGImageSource;

/// `quietdial gif [--checksums] [--frame N PICTURE.png] FILE`: what the image source makes of a
/// GIF.
///
/// Prints one JSON object: `width`, `height`, `frames`, `unclamped` (seconds as in the file, null
/// for a frame without a delay) and, if asked for, `checksums`: the SHA-256 of each composited
/// frame as RGBA, 8 bits each, not premultiplied, rows from the top, transparent pixels as 0,0,0,0;
/// null for a frame that cannot be decoded. `--frame` writes frame N, counted from 0, as a PNG.
///
/// The exit status: 0, 1 where the file makes no image or a frame cannot be had or written (one
/// sentence on the error stream, nothing on the output), 2 for wrong usage.
class GifCommand final : public Command {
 public:
  std::string_view name() const override { return "gif"; }
  std::string_view summary() const override { return "Tell what an animated picture holds."; }
  std::vector<Example> examples() const override;
  void describe(CLI::App& app) override;
  int run(Streams streams) override;

 private:
  bool writeFrame(const CGImageSource& source, std::ostream& err) const;

  bool withChecksums_ = false;
  std::optional<std::pair<std::size_t, std::string>> frame_;
  std::string file_;
};
