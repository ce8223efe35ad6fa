#pragma once

#include <iosfwd>
#include <span>

/// `quietdial gif [--checksums] [--frame N PICTURE.png] FILE`: what the image source makes of a
/// GIF.
///
/// Prints one JSON object: `width`, `height`, `frames`, `unclamped` (seconds as in the file, null
/// for a frame without a delay) and, if asked for, `checksums`: the SHA-256 of each composited
/// frame as RGBA, 8 bits each, not premultiplied, rows from the top, transparent pixels as 0,0,0,0;
/// null for a frame that cannot be decoded. `--frame` writes frame N, counted from 0, as a PNG.
///
/// `arguments` are those after `gif`. Returns the exit status: 0, 1 where the file makes no image
/// or a frame cannot be had or written (one sentence on `err`, nothing on `out`), 2 for wrong
/// usage.
int runGifCommand(std::span<char* const> arguments, std::ostream& out, std::ostream& err);
