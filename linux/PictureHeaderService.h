#pragma once

#include <memory>
#include <optional>
#include <string>

#include "linux/DevicePaths.h"
#include "platform/services.h"

/// Sizes of PNG and GIF pictures, from the first bytes of the file; nothing is decoded.
class PictureHeaderService final : public PictureService {
 public:
  explicit PictureHeaderService(std::shared_ptr<const DevicePaths> paths);
  std::optional<CGSize> pixelSize(const std::string& path) override;

 private:
  std::shared_ptr<const DevicePaths> paths_;
};
