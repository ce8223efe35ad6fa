#include "linux/WatchedFiles.h"

#include <utility>

WatchedFiles::WatchedFiles(std::shared_ptr<DeviceFileService> files,
                           std::shared_ptr<UnsavedSettings> unsaved)
    : files_(std::move(files)), unsaved_(std::move(unsaved)) {}

std::optional<PropertyListData> WatchedFiles::dataWithContentsOfFile(
    const std::string& path) const {
  return files_->dataWithContentsOfFile(path);
}

std::optional<PropertyListDictionary> WatchedFiles::dictionaryWithContentsOfFile(
    const std::string& path) const {
  return files_->dictionaryWithContentsOfFile(path);
}

bool WatchedFiles::writeToFileAtomically(const PropertyListDictionary& dictionary,
                                         const std::string& path) {
  // What the file holds is read only where it matters: while something is left out, or comes to be.
  const bool anyUnsaved = !unsaved_->isEmpty();
  const auto before = anyUnsaved ? stored(path) : PropertyListDictionary();
  const auto error = files_->replaceFile(dictionary, path);
  if (error) {
    unsaved_->writeFailed(path, dictionary, anyUnsaved ? before : stored(path), error);
  } else if (anyUnsaved) {
    unsaved_->written(path, before, dictionary);
  }
  return !error;
}

std::optional<PropertyListData> WatchedFiles::dataWithPropertyList(
    const PropertyListDictionary& dictionary) const {
  return files_->dataWithPropertyList(dictionary);
}

PropertyListDictionary WatchedFiles::stored(const std::string& path) const {
  return files_->dictionaryWithContentsOfFile(path).value_or(PropertyListDictionary());
}
