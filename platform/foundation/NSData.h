#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/NSObject.h"

/// Bytes that never change. Any thread.
class PLATFORM_API NSData : public NSObject {
 public:
  static const ClassDescription classObject;
  const ClassDescription& classDescription() const override { return classObject; }

  static std::shared_ptr<NSData> dataWithBytes(std::vector<std::uint8_t> bytes);
  /// The file's bytes; null when it cannot be read or is larger than the file service's bound.
  static std::shared_ptr<NSData> dataWithContentsOfFile(const std::string& path);

  const std::vector<std::uint8_t>& bytes() const { return bytes_; }
  std::size_t length() const { return bytes_.size(); }

 private:
  std::vector<std::uint8_t> bytes_;
};
