#pragma once

#include <istream>
#include <string>

enum class LineResult { kLine, kTooLong, kEnd };

/// Reads lines of a bounded length; a longer one is passed over as a whole.
class LineReader {
 public:
  LineReader(std::istream& in, std::size_t longest) : in_(in), longest_(longest) {}

  /// The next line without its end, in `line`.
  LineResult next(std::string& line);

 private:
  std::istream& in_;
  std::size_t longest_;
};
