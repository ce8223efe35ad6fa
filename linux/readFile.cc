#include "linux/readFile.h"

#include <cerrno>

#include "linux/FileDescriptor.h"

FileContents readFile(int directory, const std::string& path, std::size_t bound, int flags) {
  using Outcome = FileContents::Outcome;
  FileContents contents;
  struct stat status {};
  const FileDescriptor file(
      openat(directory, path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | flags));
  if (!file) {
    const int reason = errno;
    if (reason == ENOENT || reason == ENOTDIR) {
      return contents;
    }
    const bool follows = (flags & O_NOFOLLOW) == 0;
    if (fstatat(directory, path.c_str(), &status, follows ? 0 : AT_SYMLINK_NOFOLLOW) == 0) {
      contents.status = status;
    }
    contents.error = reason;
    contents.outcome =
        contents.status && !S_ISREG(status.st_mode) ? Outcome::kNotAFile : Outcome::kUnreadable;
    return contents;
  }
  if (fstat(file.get(), &status) != 0) {
    contents.error = errno;
    contents.outcome = Outcome::kUnreadable;
    return contents;
  }
  contents.status = status;
  if (!S_ISREG(status.st_mode)) {
    contents.outcome = Outcome::kNotAFile;
    return contents;
  }
  if (static_cast<std::size_t>(status.st_size) > bound) {
    contents.outcome = Outcome::kTooLarge;
    return contents;
  }
  // One byte more than the file has, so that its end is seen, and growth while it is read.
  contents.bytes.resize(static_cast<std::size_t>(status.st_size) + 1);
  std::size_t length = 0;
  while (true) {
    const ssize_t count =
        read(file.get(), contents.bytes.data() + length, contents.bytes.size() - length);
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count < 0) {
      contents.error = errno;
      contents.bytes.clear();
      contents.outcome = Outcome::kUnreadable;
      return contents;
    }
    if (count == 0) {
      break;
    }
    length += static_cast<std::size_t>(count);
    if (length > bound) {
      contents.bytes.clear();
      contents.outcome = Outcome::kTooLarge;
      return contents;
    }
    if (length == contents.bytes.size()) {
      contents.bytes.resize(length * 2);
    }
  }
  contents.bytes.resize(length);
  contents.outcome = Outcome::kRead;
  return contents;
}
