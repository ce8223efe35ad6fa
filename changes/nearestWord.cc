#include "changes/nearestWord.h"

#include <algorithm>
#include <vector>

#include "platform/foundation/asciiText.h"

namespace {

constexpr std::size_t kLongestWord = 64;

// How many letters are left out, added, changed or exchanged with their neighbour.
std::size_t distance(std::string_view left, std::string_view right) {
  const std::size_t width = right.size() + 1;
  std::vector<std::size_t> table((left.size() + 1) * width);
  const auto at = [&](std::size_t i, std::size_t j) -> std::size_t& {
    return table[i * width + j];
  };
  for (std::size_t i = 0; i <= left.size(); ++i) {
    for (std::size_t j = 0; j <= right.size(); ++j) {
      if (i == 0 || j == 0) {
        at(i, j) = i + j;
        continue;
      }
      const bool isSame = lowered(left[i - 1]) == lowered(right[j - 1]);
      at(i, j) =
          std::min({at(i - 1, j) + 1, at(i, j - 1) + 1, at(i - 1, j - 1) + (isSame ? 0 : 1)});
      if (i > 1 && j > 1 && lowered(left[i - 1]) == lowered(right[j - 2]) &&
          lowered(left[i - 2]) == lowered(right[j - 1])) {
        at(i, j) = std::min(at(i, j), at(i - 2, j - 2) + 1);
      }
    }
  }
  return at(left.size(), right.size());
}

}  // namespace

std::string nearestWord(std::string_view typed, std::span<const std::string> words) {
  if (typed.size() > kLongestWord) {
    return {};
  }
  std::string nearest;
  std::size_t least = std::max<std::size_t>(1, typed.size() / 3) + 1;
  for (const auto& word : words) {
    const auto letters = distance(typed, word);
    if (letters < least && letters < word.size()) {
      least = letters;
      nearest = word;
    }
  }
  return nearest;
}
