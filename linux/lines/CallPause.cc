#include "linux/lines/CallPause.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <mutex>
#include <string>
#include <thread>
#include <unistd.h>

#include <sys/file.h>
#include <sys/stat.h>

#include "linux/FileDescriptor.h"

namespace {

using std::chrono::nanoseconds;
using std::chrono::seconds;

constexpr seconds kPause(1);

nanoseconds sinceEpoch(const timespec& time) {
  return seconds(time.tv_sec) + nanoseconds(time.tv_nsec);
}

FileDescriptor noteFile() {
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  if (!folder || *folder != '/') {
    return FileDescriptor();
  }
  const std::string path = std::string(folder) + "/quietdial-last-call";
  FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
  // Another program that is just calling holds it for the length of the pause at most.
  while (file && flock(file.get(), LOCK_EX) != 0 && errno == EINTR) {
  }
  return file;
}

// A moment that lies ahead, from a clock that was set back, counts as long ago.
nanoseconds left(nanoseconds last) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const auto passed = sinceEpoch(now) - last;
  return passed < nanoseconds(0) ? nanoseconds(0) : kPause - passed;
}

}  // namespace

void waitForCallPause() {
  static std::mutex guard;
  static nanoseconds ownLast(0);
  const std::lock_guard lock(guard);
  const FileDescriptor file = noteFile();
  struct stat status {};
  nanoseconds last = ownLast;
  // An empty file was made just now, for the first call of all.
  if (file && fstat(file.get(), &status) == 0 && status.st_size > 0) {
    last = std::max(last, sinceEpoch(status.st_mtim));
  }
  std::this_thread::sleep_for(left(last));
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  ownLast = sinceEpoch(now);
  if (file && pwrite(file.get(), "\n", 1, 0) == 1) {
    const std::array<timespec, 2> times{now, now};
    futimens(file.get(), times.data());
  }
}
