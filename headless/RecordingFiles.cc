#include "headless/RecordingFiles.h"

#include <utility>

RecordingFiles::RecordingFiles(std::shared_ptr<FileService> files,
                               std::shared_ptr<Recorder> recorder)
    : files_(std::move(files)), recorder_(std::move(recorder)) {}

std::optional<PropertyListData> RecordingFiles::dataWithContentsOfFile(
    const std::string& path) const {
  return files_->dataWithContentsOfFile(path);
}

std::optional<PropertyListDictionary> RecordingFiles::dictionaryWithContentsOfFile(
    const std::string& path) const {
  return files_->dictionaryWithContentsOfFile(path);
}

bool RecordingFiles::writeToFileAtomically(const PropertyListDictionary& dictionary,
                                           const std::string& path) {
  const bool ok = files_->writeToFileAtomically(dictionary, path);
  recorder_->record(WriteEvent{path, dictionary, ok});
  return ok;
}

std::optional<PropertyListData> RecordingFiles::dataWithPropertyList(
    const PropertyListDictionary& dictionary) const {
  return files_->dataWithPropertyList(dictionary);
}
