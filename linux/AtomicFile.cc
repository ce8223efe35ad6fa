#include "linux/AtomicFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <utility>

#include <sys/file.h>
#include <sys/random.h>

#include "linux/privateFolder.h"
#include "linux/readFile.h"

namespace {

constexpr int kMostLinks = 40;     // as many as the kernel follows in one path
constexpr int kMostAttempts = 16;  // at a name for the temporary
constexpr std::string_view kTemporarySuffix = ".tmp";
constexpr std::size_t kRandomDigits = 16;
constexpr mode_t kModeBits = 07777;
constexpr mode_t kUserAlone = 0600;

bool fail(int reason) {
  errno = reason;
  return false;
}

std::string folderOf(const std::string& path) {
  const auto slash = path.find_last_of('/');
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string temporaryPrefix(const std::string& name) {
  return "." + name + ".";
}

bool isTemporaryOf(std::string_view entry, const std::string& name) {
  const auto prefix = temporaryPrefix(name);
  return entry.size() == prefix.size() + kRandomDigits + kTemporarySuffix.size() &&
         entry.starts_with(prefix) && entry.ends_with(kTemporarySuffix) &&
         entry.substr(prefix.size(), kRandomDigits).find_first_not_of("0123456789abcdef") ==
             std::string_view::npos;
}

std::optional<std::string> temporaryName(const std::string& name) {
  std::uint64_t number = 0;
  if (getrandom(&number, sizeof number, 0) != static_cast<ssize_t>(sizeof number)) {
    return std::nullopt;
  }
  std::array<char, kRandomDigits + 1> digits{};
  std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(number));
  return temporaryPrefix(name) + digits.data() + std::string(kTemporarySuffix);
}

}  // namespace

AtomicFile::AtomicFile(std::string path, std::size_t bound, Check check)
    : path_(std::move(path)), bound_(bound), check_(std::move(check)) {}

AtomicFile::AtomicFile(FileDescriptor folder, std::string name, std::size_t bound, Check check)
    : bound_(bound), check_(std::move(check)), name_(std::move(name)), folder_(std::move(folder)) {}

std::error_code AtomicFile::replace(std::string_view bytes) {
  return tryToReplace(bytes) ? std::error_code() : std::error_code(errno, std::system_category());
}

bool AtomicFile::tryToReplace(std::string_view bytes) {
  using Outcome = FileContents::Outcome;
  if (bytes.size() > bound_) {
    return fail(EFBIG);
  }
  if (!folder_ && (!followLinks() || !openFolder())) {
    return false;
  }
  const auto old = readFile(folder_.get(), name_, bound_, O_NOFOLLOW);
  if (old.outcome == Outcome::kTooLarge) {
    return fail(EFBIG);
  }
  if (old.outcome == Outcome::kNotAFile) {
    return fail(old.status && S_ISDIR(old.status->st_mode) ? EISDIR : ENOTSUP);
  }
  // Whose file it is and who may read it is not known: a new one could lock its owner out.
  if (old.outcome != Outcome::kAbsent && !old.status) {
    return fail(old.error);
  }
  old_ = old.status;
  const bool damaged =
      old.outcome == Outcome::kUnreadable || (old.outcome == Outcome::kRead && !check_(old.bytes));
  sweepTemporaries();
  if (!openTemporary()) {
    return false;
  }
  if (!fillTemporary(bytes) || (damaged && !keepOldFile()) ||
      renameat(folder_.get(), temporary_.c_str(), folder_.get(), name_.c_str()) != 0) {
    const int reason = errno;
    unlinkat(folder_.get(), temporary_.c_str(), 0);
    return fail(reason);
  }
  // The new file is in place. Where a file system cannot sync folders, that is as far as it goes.
  fsync(folder_.get());
  return true;
}

bool AtomicFile::followLinks() {
  std::array<char, PATH_MAX> target{};
  for (int links = 0; links <= kMostLinks; ++links) {
    const ssize_t length = readlink(path_.c_str(), target.data(), target.size());
    if (length < 0) {
      name_ = path_.substr(path_.find_last_of('/') + 1);
      return (!name_.empty() && name_ != "." && name_ != "..") || fail(EINVAL);
    }
    std::string next(target.data(), static_cast<std::size_t>(length));
    path_ = next.starts_with('/') ? std::move(next) : folderOf(path_) + "/" + next;
  }
  return fail(ELOOP);
}

bool AtomicFile::openFolder() {
  const auto folder = folderOf(path_);
  constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
  folder_ = FileDescriptor(open(folder.c_str(), kFlags));
  if (!folder_ && errno == ENOENT && makePrivateFolders(folder)) {
    folder_ = FileDescriptor(open(folder.c_str(), kFlags));
  }
  return static_cast<bool>(folder_);
}

// A temporary is locked while its writer lives, so that a sweep takes only those of dead ones. A
// sweep may come between making and locking it: then another one is made.
bool AtomicFile::openTemporary() {
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    const auto name = temporaryName(name_);
    if (!name) {
      return false;
    }
    file_ = FileDescriptor(
        openat(folder_.get(), name->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kUserAlone));
    if (!file_) {
      if (errno == EEXIST) {
        continue;
      }
      return false;
    }
    temporary_ = *name;
    const bool swept = flock(file_.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    struct stat status {};
    if (!swept && fstat(file_.get(), &status) == 0 && status.st_nlink > 0) {
      return true;
    }
    unlinkat(folder_.get(), temporary_.c_str(), 0);
  }
  return fail(EAGAIN);
}

bool AtomicFile::fillTemporary(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(file_.get(), bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) {
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }
  if (old_) {
    // Only a privileged process may give a file away; anyone else's stays the writer's own.
    const bool sameOwner = old_->st_uid == geteuid() && old_->st_gid == getegid();
    if (!sameOwner && fchown(file_.get(), old_->st_uid, old_->st_gid) != 0 &&
        fchown(file_.get(), static_cast<uid_t>(-1), old_->st_gid) != 0 && errno != EPERM) {
      return false;
    }
    if (fchmod(file_.get(), old_->st_mode & kModeBits) != 0) {
      return false;
    }
  }
  return fsync(file_.get()) == 0;
}

bool AtomicFile::keepOldFile() {
  const auto kept = name_ + ".damaged";
  if (linkat(folder_.get(), name_.c_str(), folder_.get(), kept.c_str(), 0) == 0 ||
      errno == EEXIST) {
    return true;
  }
  // No hard links on this file system, or not to this file. Readers had no use of the file, so it
  // may as well be gone for the moment until the new one is in place.
  return renameat2(folder_.get(), name_.c_str(), folder_.get(), kept.c_str(), RENAME_NOREPLACE) ==
             0 ||
         errno == EEXIST;
}

void AtomicFile::sweepTemporaries() {
  const int descriptor = openat(folder_.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(
      descriptor < 0 ? nullptr : fdopendir(descriptor), closedir);
  if (!entries) {
    return;
  }
  while (const dirent* entry = readdir(entries.get())) {
    if (!isTemporaryOf(entry->d_name, name_)) {
      continue;
    }
    const FileDescriptor stray(
        openat(folder_.get(), entry->d_name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (stray && flock(stray.get(), LOCK_EX | LOCK_NB) == 0) {
      unlinkat(folder_.get(), entry->d_name, 0);
    }
  }
}
