#pragma once

#include <cstddef>
#include <fcntl.h>
#include <optional>
#include <string>

#include <sys/stat.h>

/// What came of reading a whole file.
struct FileContents {
  enum class Outcome {
    kRead,
    kAbsent,      ///< Nothing has that name.
    kNotAFile,    ///< Something else than a regular file has it.
    kTooLarge,    ///< Larger than the bound.
    kUnreadable,  ///< Not allowed, or the disk failed.
  };

  Outcome outcome = Outcome::kAbsent;
  int error = 0;                      ///< Where it is unreadable: errno's number for the reason.
  std::string bytes;                  ///< Where it was read.
  std::optional<struct stat> status;  ///< Where there is a file and its status could be asked.
};

/// Reads a regular file of at most `bound` bytes. Never blocks on a pipe or a device. `directory`
/// and `path` are as for openat(2); `flags` are added to its flags.
FileContents readFile(int directory, const std::string& path, std::size_t bound, int flags = 0);

/// Reads all that an open file, a pipe or a terminal gives, of at most `bound` bytes; waits for it.
/// No status.
FileContents readStream(int descriptor, std::size_t bound);
