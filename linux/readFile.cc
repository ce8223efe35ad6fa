#include "linux/readFile.h"

#include <cerrno>
#include <unistd.h>

#include "linux/FileDescriptor.h"

namespace {

using Outcome = FileContents::Outcome;

FileContents unreadable(int reason) {
  return {.outcome = Outcome::kUnreadable, .error = reason, .bytes = {}, .status = {}};
}

// What stands in the way of opening it: `reason` is open's.
FileContents unopened(int directory, const std::string& path, int flags, int reason) {
  if (reason == ENOENT || reason == ENOTDIR) {
    return {};
  }
  auto contents = unreadable(reason);
  struct stat status {};
  const int linkFlags = (flags & O_NOFOLLOW) == 0 ? 0 : AT_SYMLINK_NOFOLLOW;
  if (fstatat(directory, path.c_str(), &status, linkFlags) == 0) {
    contents.status = status;
    contents.outcome = S_ISREG(status.st_mode) ? Outcome::kUnreadable : Outcome::kNotAFile;
  }
  return contents;
}

// Reads to the end; `expected` is how many bytes there seem to be.
FileContents readToEnd(int descriptor, std::size_t expected, std::size_t bound) {
  FileContents contents;
  // One byte more than that, so that the end is seen, and growth while it is read.
  contents.bytes.resize(expected + 1);
  std::size_t length = 0;
  while (true) {
    const ssize_t count =
        read(descriptor, contents.bytes.data() + length, contents.bytes.size() - length);
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count < 0) {
      return unreadable(errno);
    }
    if (count == 0) {
      contents.bytes.resize(length);
      contents.outcome = Outcome::kRead;
      return contents;
    }
    length += static_cast<std::size_t>(count);
    if (length > bound) {
      return {.outcome = Outcome::kTooLarge, .error = 0, .bytes = {}, .status = {}};
    }
    if (length == contents.bytes.size()) {
      contents.bytes.resize(length * 2);
    }
  }
}

}  // namespace

FileContents readFile(int directory, const std::string& path, std::size_t bound, int flags) {
  const FileDescriptor file(
      openat(directory, path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | flags));
  if (!file) {
    return unopened(directory, path, flags, errno);
  }
  struct stat status {};
  if (fstat(file.get(), &status) != 0) {
    return unreadable(errno);
  }
  FileContents contents;
  const auto size = static_cast<std::size_t>(status.st_size);
  if (!S_ISREG(status.st_mode)) {
    contents.outcome = Outcome::kNotAFile;
  } else if (size > bound) {
    contents.outcome = Outcome::kTooLarge;
  } else {
    contents = readToEnd(file.get(), size, bound);
  }
  contents.status = status;
  return contents;
}

FileContents readStream(int descriptor, std::size_t bound) {
  constexpr std::size_t kFirstRoom = std::size_t{64} << 10;
  return readToEnd(descriptor, kFirstRoom, bound);
}
