#include "platform/imageio/UTType.h"

#include "platform/foundation/asciiText.h"

bool UTTypeConformsTo(std::string_view type, std::string_view conformsToType) {
  return equalsInAnyCase(type, conformsToType) ||
         (equalsInAnyCase(type, kUTTypeGIF) && equalsInAnyCase(conformsToType, kUTTypeImage));
}
