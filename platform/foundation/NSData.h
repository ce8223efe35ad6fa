#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/api.h"
#include "platform/foundation/Subclass.h"

/// Bytes that never change. Any thread.
class PLATFORM_API NSData : public Subclass<NSData, NSObject> {
 public:
  static const ClassOf<NSData> classObject;

  static std::shared_ptr<NSData> dataWithBytes(std::vector<std::uint8_t> bytes);
  /// The file's bytes; null when it cannot be read or is larger than the file service's bound.
  static std::shared_ptr<NSData> dataWithContentsOfFile(const std::string& path);

  const std::vector<std::uint8_t>& bytes() const { return bytes_; }
  std::size_t length() const { return bytes_.size(); }

 private:
  std::vector<std::uint8_t> bytes_;
};
