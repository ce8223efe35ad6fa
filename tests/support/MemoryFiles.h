#pragma once

#include <map>
#include <string>

#include "platform/services.h"

/// Files that exist only in memory, by device path. Writes can be made to fail.
class MemoryFiles : public FileService {
 public:
  std::optional<PropertyListData> dataWithContentsOfFile(const std::string& path) const override;
  std::optional<PropertyListDictionary> dictionaryWithContentsOfFile(
      const std::string& path) const override;
  bool writeToFileAtomically(const PropertyListDictionary& dictionary,
                             const std::string& path) override;
  /// Keeps the dictionary; the bytes are only a mark.
  std::optional<PropertyListData> dataWithPropertyList(
      const PropertyListDictionary& dictionary) const override;

  std::map<std::string, PropertyListDictionary> dictionaries;
  /// Files of other kinds.
  std::map<std::string, PropertyListData> data;
  bool failsToWrite = false;
  mutable PropertyListDictionary lastSerialized;
};
