#include "dialler/desk/SoleScreen.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

#include <sys/file.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

namespace {

// A screen that is busy hears of nobody else after that.
constexpr timeval kPatience{2, 0};

std::string pathFor(const QString& name) {
  const char* folder = std::getenv("XDG_RUNTIME_DIR");
  if (!folder || *folder != '/') {
    return {};
  }
  const std::string path = std::string(folder) + "/quietdial-" + name.toStdString();
  return path.size() < sizeof(sockaddr_un::sun_path) ? path : std::string();
}

sockaddr_un addressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::memcpy(address.sun_path, path.data(), path.size());
  return address;
}

FileDescriptor makeSocket() {
  return FileDescriptor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
}

template <class Call>
bool withAddress(const std::string& path, Call call) {
  const sockaddr_un address = addressOf(path);
  return call(reinterpret_cast<const sockaddr*>(&address), socklen_t{sizeof(address)}) == 0;
}

}  // namespace

SoleScreen::SoleScreen(const QString& name) : path_(pathFor(name)) {}

SoleScreen::~SoleScreen() {
  giveBack();
}

bool SoleScreen::take(Otherwise otherwise) {
  if (path_.empty() || socket_) {
    return true;
  }
  const std::string lockPath = path_ + ".lock";
  const FileDescriptor lock(
      open(lockPath.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, 0600));
  // Held for the moment in which somebody looks whether the screen is there.
  while (lock && flock(lock.get(), LOCK_EX) != 0 && errno == EINTR) {
  }
  return takeAlone(otherwise);
}

bool SoleScreen::takeAlone(Otherwise otherwise) {
  const auto other = makeSocket();
  if (other && withAddress(path_, [&](const sockaddr* address, socklen_t length) {
        return ::connect(other.get(), address, length);
      })) {
    setsockopt(other.get(), SOL_SOCKET, SO_SNDTIMEO, &kPatience, sizeof(kPatience));
    if (otherwise == Otherwise::Knock) {
      [[maybe_unused]] const auto sent = send(other.get(), "", 1, MSG_NOSIGNAL);
    }
    return false;
  }
  // Of a process that has ended without giving it back.
  unlink(path_.c_str());
  socket_ = makeSocket();
  const bool isBound =
      socket_ && withAddress(path_, [&](const sockaddr* address, socklen_t length) {
        return ::bind(socket_.get(), address, length);
      });
  if (!isBound) {
    socket_.close();
  }
  return true;
}

void SoleScreen::giveBack() {
  notifier_.reset();
  if (socket_) {
    unlink(path_.c_str());
    socket_.close();
  }
}

void SoleScreen::listen() {
  if (socket_ && !notifier_) {
    notifier_ = std::make_unique<QSocketNotifier>(socket_.get(), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &SoleScreen::hear);
  }
}

void SoleScreen::hear() {
  char byte = 0;
  while (socket_ && recv(socket_.get(), &byte, 1, MSG_DONTWAIT) >= 0) {
    emit knocked();
  }
}
