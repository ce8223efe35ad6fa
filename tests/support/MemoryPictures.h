#pragma once

#include <map>
#include <string>

#include "platform/services.h"

/// Pictures of which only the size is known, by device path.
class MemoryPictures : public PictureService {
 public:
  std::optional<CGSize> pixelSize(const std::string& path) override {
    const auto found = sizes.find(path);
    return found == sizes.end() ? std::nullopt : std::optional(found->second);
  }

  std::map<std::string, CGSize> sizes;
};
