#include "linux/DeviceFileService.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "linux/AtomicFile.h"
#include "linux/propertylist/PropertyListBudget.h"
#include "linux/propertylist/PropertyListSerialization.h"
#include "linux/readFile.h"

namespace {

PropertyListData dataFrom(std::string_view bytes) {
  PropertyListData data(bytes.size());
  std::ranges::transform(bytes, data.begin(),
                         [](char byte) { return static_cast<std::byte>(byte); });
  return data;
}

}  // namespace

DeviceFileService::DeviceFileService(std::shared_ptr<const DevicePaths> paths)
    : paths_(std::move(paths)) {}

std::optional<PropertyListData> DeviceFileService::dataWithContentsOfFile(
    const std::string& path) const {
  const auto host = paths_->forReading(path);
  const auto contents = host ? readFile(AT_FDCWD, *host, kPropertyListFileBound) : FileContents();
  if (contents.outcome != FileContents::Outcome::kRead) {
    return std::nullopt;
  }
  return dataFrom(contents.bytes);
}

std::optional<PropertyListDictionary> DeviceFileService::dictionaryWithContentsOfFile(
    const std::string& path) const {
  const auto host = paths_->forReading(path);
  const auto contents = host ? readFile(AT_FDCWD, *host, kPropertyListFileBound) : FileContents();
  return contents.outcome == FileContents::Outcome::kRead ? dictionaryFromBytes(contents.bytes)
                                                          : std::nullopt;
}

bool DeviceFileService::writeToFileAtomically(const PropertyListDictionary& dictionary,
                                              const std::string& path) {
  return !replaceFile(dictionary, path);
}

std::error_code DeviceFileService::replaceFile(const PropertyListDictionary& dictionary,
                                               const std::string& path) {
  const auto host = paths_->forWriting(path);
  if (!host) {
    return {EINVAL, std::system_category()};
  }
  const auto bytes = bytesFromPropertyList(dictionary);
  if (!bytes) {
    return {EFBIG, std::system_category()};  // or a text in it is none, which panes cannot give
  }
  const auto isDictionary = [](std::string_view old) {
    return dictionaryFromBytes(old).has_value();
  };
  return AtomicFile(*host, kPropertyListFileBound, isDictionary).replace(*bytes);
}

std::optional<PropertyListData> DeviceFileService::dataWithPropertyList(
    const PropertyListDictionary& dictionary) const {
  const auto bytes = bytesFromPropertyList(dictionary);
  return bytes ? std::optional(dataFrom(*bytes)) : std::nullopt;
}
