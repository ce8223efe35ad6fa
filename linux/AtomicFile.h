#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include <sys/stat.h>

#include "linux/FileDescriptor.h"

/// A file that is replaced as a whole, so that neither a reader nor a crash ever meets a half.
///
/// The new content is written to a temporary file in the same folder, synced and moved into place;
/// then the folder is synced. A new file is the user's alone (mode 0600), and so are the parent
/// folders that are made for it (0700); an old file's mode is kept, and its owner where this
/// process may give files away. Writers of several processes do not disturb each other: the last
/// one wins.
class AtomicFile {
 public:
  /// Whether bytes are what this file should hold.
  using Check = std::function<bool(std::string_view bytes)>;

  /// A file larger than `bound` is never replaced. One that cannot be read, or whose content does
  /// not pass the check, is kept beside the new one as "NAME.damaged", unless one is kept already.
  /// A symbolic link is followed: its target is replaced.
  AtomicFile(std::string path, std::size_t bound, Check check);

  /// The file of that name in an open folder. A symbolic link is not followed, nor replaced.
  AtomicFile(FileDescriptor folder, std::string name, std::size_t bound, Check check);

  /// No error when the file was replaced, else the reason. It is then as it was, and nothing is
  /// left behind.
  std::error_code replace(std::string_view bytes);

 private:
  // Each says whether it has succeeded, and leaves the reason in errno where it has not.
  bool tryToReplace(std::string_view bytes);
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
