#pragma once

#include <memory>
#include <optional>
#include <string>
#include <system_error>

#include "linux/DevicePaths.h"
#include "platform/services.h"

/// The device's files on this machine. Files over 16 MiB read as nothing and are never replaced; an
/// unreadable property list is kept once as "NAME.damaged" before it is replaced.
class DeviceFileService final : public FileService {
 public:
  explicit DeviceFileService(std::shared_ptr<const DevicePaths> paths);

  std::optional<PropertyListData> dataWithContentsOfFile(const std::string& path) const override;
  std::optional<PropertyListDictionary> dictionaryWithContentsOfFile(
      const std::string& path) const override;
  bool writeToFileAtomically(const PropertyListDictionary& dictionary,
                             const std::string& path) override;
  /// The same, with the reason: no error when the file was replaced.
  std::error_code replaceFile(const PropertyListDictionary& dictionary, const std::string& path);
  std::optional<PropertyListData> dataWithPropertyList(
      const PropertyListDictionary& dictionary) const override;

 private:
  std::shared_ptr<const DevicePaths> paths_;
};
