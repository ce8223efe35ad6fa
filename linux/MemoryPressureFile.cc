#include "linux/MemoryPressureFile.h"

#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

std::unique_ptr<LowMemorySource> MemoryPressureFile::open(const std::string& path) {
  FileDescriptor file(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
  // The kernel takes the trigger with its final zero.
  const std::size_t length = std::strlen(kTrigger) + 1;
  if (!file || ::write(file.get(), kTrigger, length) != static_cast<ssize_t>(length)) {
    return nullptr;
  }
  return std::make_unique<MemoryPressureFile>(std::move(file));
}

MemoryPressureFile::MemoryPressureFile(FileDescriptor file) : file_(std::move(file)) {}

LowMemorySource::Wanted MemoryPressureFile::wanted() const {
  return {.descriptor = file_.get(), .events = POLLPRI, .timeout = -1};
}

LowMemorySource::News MemoryPressureFile::process(short found) {
  if (found & (POLLERR | POLLHUP | POLLNVAL)) {
    return News::kGone;
  }
  return found & POLLPRI ? News::kLowMemory : News::kNone;
}
