#pragma once

#include <memory>

#include "headless/Recorder.h"
#include "platform/services.h"

/// Another file service, with every write recorded.
class RecordingFiles : public FileService {
 public:
  RecordingFiles(std::shared_ptr<FileService> files, std::shared_ptr<Recorder> recorder);

  std::optional<PropertyListData> dataWithContentsOfFile(const std::string& path) const override;
  std::optional<PropertyListDictionary> dictionaryWithContentsOfFile(
      const std::string& path) const override;
  bool writeToFileAtomically(const PropertyListDictionary& dictionary,
                             const std::string& path) override;
  std::optional<PropertyListData> dataWithPropertyList(
      const PropertyListDictionary& dictionary) const override;

 private:
  std::shared_ptr<FileService> files_;
  std::shared_ptr<Recorder> recorder_;
};
