#pragma once

#include <filesystem>

/// A new empty folder, gone when this object goes.
class TemporaryRoot {
 public:
  TemporaryRoot();
  TemporaryRoot(const TemporaryRoot&) = delete;
  TemporaryRoot& operator=(const TemporaryRoot&) = delete;
  TemporaryRoot(TemporaryRoot&&) = delete;
  TemporaryRoot& operator=(TemporaryRoot&&) = delete;
  ~TemporaryRoot();

  /// Empty where none could be made.
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};
