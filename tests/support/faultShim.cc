#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <sys/stat.h>

// Preloaded into a program whose file calls a test wants to break. Calls are counted from the
// moment at which the program asks for the file descriptor flags of -1, so that what happens before
// main, and in it, does not count.
//   QUIETDIAL_FAULT_CALL   the number of the counted call that is hit, from 1
//   QUIETDIAL_FAULT_ERROR  the error number that it fails with; without it the process is killed
//                          right before the call
//   QUIETDIAL_FAULT_WHILE  a file: as long as it exists, no file or folder can be made, for the
//   reason
//                          whose error number it holds

namespace {

int counted = 0;
bool counting = false;

int numberFrom(const char* name) {
  const char* text = std::getenv(name);
  return text ? std::atoi(text) : 0;
}

// True when this call is to fail, with errno set.
bool hit() {
  if (!counting || ++counted != numberFrom("QUIETDIAL_FAULT_CALL")) {
    return false;
  }
  const int error = numberFrom("QUIETDIAL_FAULT_ERROR");
  if (error == 0) {
    kill(getpid(), SIGKILL);
  }
  errno = error;
  return true;
}

// True when nothing can be made now, with errno set.
bool cannotMake() {
  const char* path = std::getenv("QUIETDIAL_FAULT_WHILE");
  std::FILE* file = path ? std::fopen(path, "re") : nullptr;
  if (!file) {
    return false;
  }
  int error = 0;
  const bool hasError = std::fscanf(file, "%d", &error) == 1;
  std::fclose(file);
  errno = error;
  return hasError;
}

template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))
#define INTERPOSE(result, name, parameters, arguments)                    \
  EXPORTED result name parameters {                                       \
    return hit() ? result(-1) : next<result parameters>(#name) arguments; \
  }

INTERPOSE(ssize_t, read, (int fd, void* buffer, size_t size), (fd, buffer, size))
INTERPOSE(ssize_t, write, (int fd, const void* buffer, size_t size), (fd, buffer, size))
INTERPOSE(int, fsync, (int fd), (fd))
INTERPOSE(int, close, (int fd), (fd))
INTERPOSE(int, fstat, (int fd, struct stat* status), (fd, status))
INTERPOSE(int, fchmod, (int fd, mode_t mode), (fd, mode))
INTERPOSE(int, fchown, (int fd, uid_t user, gid_t group), (fd, user, group))
INTERPOSE(int, flock, (int fd, int operation), (fd, operation))
INTERPOSE(ssize_t, readlink, (const char* path, char* buffer, size_t size), (path, buffer, size))
INTERPOSE(ssize_t, getrandom, (void* buffer, size_t size, unsigned flags), (buffer, size, flags))
INTERPOSE(int, unlinkat, (int folder, const char* path, int flags), (folder, path, flags))
INTERPOSE(int, renameat, (int from, const char* old, int to, const char* path),
          (from, old, to, path))
INTERPOSE(int, renameat2, (int from, const char* old, int to, const char* path, unsigned flags),
          (from, old, to, path, flags))
INTERPOSE(int, linkat, (int from, const char* old, int to, const char* path, int flags),
          (from, old, to, path, flags))

EXPORTED int mkdir(const char* path, mode_t mode) {
  return hit() || cannotMake() ? -1 : next<int(const char*, mode_t)>("mkdir")(path, mode);
}

EXPORTED int open(const char* path, int flags, ...) {
  va_list list;
  va_start(list, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0;
  va_end(list);
  return hit() ? -1 : next<int(const char*, int, mode_t)>("open")(path, flags, mode);
}

EXPORTED int openat(int folder, const char* path, int flags, ...) {
  va_list list;
  va_start(list, flags);
  const auto mode = (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0;
  va_end(list);
  if (hit() || ((flags & O_CREAT) != 0 && cannotMake())) {
    return -1;
  }
  return next<int(int, const char*, int, mode_t)>("openat")(folder, path, flags, mode);
}

EXPORTED int fcntl(int fd, int command, ...) {
  if (fd == -1) {
    counting = true;
    errno = EBADF;
    return -1;
  }
  va_list list;
  va_start(list, command);
  void* argument = va_arg(list, void*);
  va_end(list);
  return next<int(int, int, void*)>("fcntl")(fd, command, argument);
}
