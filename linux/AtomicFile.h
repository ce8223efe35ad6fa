#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <sys/stat.h>

#include "linux/FileDescriptor.h"

/// A file that is replaced as a whole, so that neither a reader nor a crash ever meets a half.
///
/// The new content is written to a temporary file in the same folder, synced and moved into place;
/// then the folder is synced. Missing parent folders are made. A symbolic link is followed: its
/// target is replaced. The old file's mode is kept, and its owner where this process may give files
/// away. Writers of several processes do not disturb each other: the last one wins.
class AtomicFile {
 public:
  /// Whether bytes are what this file should hold.
  using Check = std::function<bool(std::string_view bytes)>;

  /// A file larger than `bound` is never replaced. One that cannot be read, or whose content does
  /// not pass the check, is kept beside the new one as "NAME.damaged", unless one is kept already.
  AtomicFile(std::string path, std::size_t bound, Check check);

  /// False when the file could not be replaced. It is then as it was, and nothing is left behind.
  bool replace(std::string_view bytes);

 private:
  bool followLinks();
  bool openFolder();
  bool openTemporary();
  bool fillTemporary(std::string_view bytes);
  bool keepOldFile();
  void sweepTemporaries();

  std::string path_;
  std::size_t bound_;
  Check check_;

  std::string name_;
  FileDescriptor folder_;
  FileDescriptor file_;
  std::string temporary_;
  std::optional<struct stat> old_;
};
