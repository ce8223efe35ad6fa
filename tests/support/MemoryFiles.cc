#include "tests/support/MemoryFiles.h"

std::optional<PropertyListData> MemoryFiles::dataWithContentsOfFile(const std::string& path) const {
  const auto found = data.find(path);
  return found == data.end() ? std::nullopt : std::optional(found->second);
}

std::optional<PropertyListDictionary> MemoryFiles::dictionaryWithContentsOfFile(
    const std::string& path) const {
  const auto found = dictionaries.find(path);
  return found == dictionaries.end() ? std::nullopt : std::optional(found->second);
}

bool MemoryFiles::writeToFileAtomically(const PropertyListDictionary& dictionary,
                                        const std::string& path) {
  if (failsToWrite) {
    return false;
  }
  dictionaries[path] = dictionary;
  return true;
}

std::optional<PropertyListData> MemoryFiles::dataWithPropertyList(
    const PropertyListDictionary& dictionary) const {
  lastSerialized = dictionary;
  return PropertyListData{std::byte{'p'}, std::byte{'l'}};
}
