#include "platform/foundation/NSData.h"

#include <algorithm>
#include <utility>

#include "platform/services.h"

constexpr ClassOf<NSData> NSData::classObject{"NSData"};

std::shared_ptr<NSData> NSData::dataWithBytes(std::vector<std::uint8_t> bytes) {
  auto data = allocInit<NSData>();
  data->bytes_ = std::move(bytes);
  return data;
}

std::shared_ptr<NSData> NSData::dataWithContentsOfFile(const std::string& path) {
  const auto contents = services().files->dataWithContentsOfFile(path);
  if (!contents) {
    return nullptr;
  }
  std::vector<std::uint8_t> bytes(contents->size());
  std::ranges::transform(*contents, bytes.begin(),
                         [](std::byte byte) { return static_cast<std::uint8_t>(byte); });
  return dataWithBytes(std::move(bytes));
}
