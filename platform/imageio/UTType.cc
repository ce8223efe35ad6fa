#include "platform/imageio/UTType.h"

#include <algorithm>

namespace {

char lower(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                              : character;
}

bool isSame(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, {}, lower, lower);
}

}  // namespace

bool UTTypeConformsTo(std::string_view type, std::string_view conformsToType) {
  return isSame(type, conformsToType) ||
         (isSame(type, kUTTypeGIF) && isSame(conformsToType, kUTTypeImage));
}
