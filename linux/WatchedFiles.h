#pragma once

#include <memory>

#include "linux/DeviceFileService.h"
#include "linux/UnsavedSettings.h"

/// The device's files, with a list of what failed writes leave out of them. Whoever writes is told
/// no more than without.
class WatchedFiles final : public FileService {
 public:
  WatchedFiles(std::shared_ptr<DeviceFileService> files, std::shared_ptr<UnsavedSettings> unsaved);

  std::optional<PropertyListData> dataWithContentsOfFile(const std::string& path) const override;
  std::optional<PropertyListDictionary> dictionaryWithContentsOfFile(
      const std::string& path) const override;
  bool writeToFileAtomically(const PropertyListDictionary& dictionary,
                             const std::string& path) override;
  std::optional<PropertyListData> dataWithPropertyList(
      const PropertyListDictionary& dictionary) const override;

 private:
  PropertyListDictionary stored(const std::string& path) const;

  std::shared_ptr<DeviceFileService> files_;
  std::shared_ptr<UnsavedSettings> unsaved_;
};
