#include "tools/askUser.h"

#include <unistd.h>

#include "platform/foundation/asciiText.h"
#include "tools/readLine.h"

Answer askUser(Streams streams, const std::string& question) {
  constexpr std::size_t kLongestAnswer = 512;
  if (isatty(STDIN_FILENO) == 0) {
    return Answer::kNobody;
  }
  streams.out << question << " [y/N] " << std::flush;
  const auto line = readLine(streams.in, kLongestAnswer);
  const auto answer = lowered(trimmed(line.value_or("")));
  return answer == "y" || answer == "yes" ? Answer::kYes : Answer::kNo;
}
