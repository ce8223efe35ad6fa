#include "linux/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

#include <sys/file.h>
#include <sys/stat.h>

#include "linux/privateFolder.h"

namespace {

constexpr mode_t kLockMode = 0600;
constexpr auto kLockPause = std::chrono::milliseconds(2);

std::error_code codeOf(int number) {
  return {number, std::system_category()};
}

// Whether it is a file of the user's own, which nobody else may open.
bool isPrivate(const struct stat& file) {
  return S_ISREG(file.st_mode) && file.st_nlink == 1 && (file.st_mode & 0077) == 0 &&
         (file.st_uid == geteuid() || geteuid() == 0);
}

}  // namespace

FileLock::FileLock(const std::string& path, std::chrono::milliseconds patience)
    : error_(take(path, patience)) {}

std::error_code FileLock::take(const std::string& path, std::chrono::milliseconds patience) {
  const auto folder = path.substr(0, path.rfind('/'));
  if (!makePrivateFolders(folder)) {
    return codeOf(errno);
  }
  file_ = FileDescriptor(
      open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, kLockMode));
  struct stat status {};
  if (!file_ || fstat(file_.get(), &status) != 0) {
    return codeOf(errno);
  }
  if (!isPrivate(status)) {
    return codeOf(EPERM);
  }
  struct stat owner {};
  // What root does in a user's folder must not lock that user out.
  if (geteuid() == 0 && status.st_uid == 0 && stat(folder.c_str(), &owner) == 0 &&
      owner.st_uid != 0 && fchown(file_.get(), owner.st_uid, owner.st_gid) != 0) {
    return codeOf(errno);
  }
  const auto end = std::chrono::steady_clock::now() + patience;
  while (flock(file_.get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) {
      return codeOf(errno);
    }
    if (std::chrono::steady_clock::now() >= end) {
      return std::make_error_code(std::errc::timed_out);
    }
    std::this_thread::sleep_for(kLockPause);
  }
  return {};
}
