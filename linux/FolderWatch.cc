#include "linux/FolderWatch.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <unistd.h>

#include <sys/inotify.h>

FolderWatch::FolderWatch(const std::string& folder) : watch_(inotify_init1(IN_CLOEXEC)) {
  constexpr std::uint32_t kEvents = IN_MOVED_TO | IN_CLOSE_WRITE | IN_DELETE | IN_MOVED_FROM |
                                    IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
  if (!watch_ || inotify_add_watch(watch_.get(), folder.c_str(), kEvents) < 0) {
    error_ = {errno, std::system_category()};
  }
}

bool FolderWatch::wait() {
  alignas(inotify_event) std::array<std::byte, 4096> events{};
  ssize_t length = 0;
  do {
    length = read(watch_.get(), events.data(), events.size());
  } while (length < 0 && errno == EINTR);
  for (std::size_t offset = 0; std::cmp_less(offset, length);) {
    const auto* const event = reinterpret_cast<const inotify_event*>(&events.at(offset));
    if ((event->mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED)) != 0) {
      return false;
    }
    offset += sizeof(inotify_event) + event->len;
  }
  return length > 0;
}
