#include "tools/drive/LineReader.h"

LineResult LineReader::next(std::string& line) {
  line.clear();
  auto& buffer = *in_.rdbuf();
  bool tooLong = false;
  for (int letter = buffer.sbumpc();; letter = buffer.sbumpc()) {
    if (letter == std::istream::traits_type::eof()) {
      return line.empty() && !tooLong ? LineResult::kEnd
                                      : (tooLong ? LineResult::kTooLong : LineResult::kLine);
    }
    if (letter == '\n') {
      return tooLong ? LineResult::kTooLong : LineResult::kLine;
    }
    tooLong = tooLong || line.size() == longest_;
    if (!tooLong) {
      line += static_cast<char>(letter);
    }
  }
}
