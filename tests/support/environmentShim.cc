#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

// Preloaded into a program whose changes of its environment a test wants to see: the file that
// QUIETDIAL_ENVIRONMENT_LOG names gets a line for each, with the variable and the number of threads
// that the program has at that moment.

namespace {

int threads() {
  int count = 0;
  DIR* tasks = opendir("/proc/self/task");
  while (const dirent* task = tasks ? readdir(tasks) : nullptr) {
    count += task->d_name[0] != '.';
  }
  if (tasks) {
    closedir(tasks);
  }
  return count;
}

void tell(const char* name) {
  const char* path = std::getenv("QUIETDIAL_ENVIRONMENT_LOG");
  const int log = path ? open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600) : -1;
  if (log >= 0) {
    dprintf(log, "%.*s %d\n", static_cast<int>(std::strcspn(name, "=")), name, threads());
    close(log);
  }
}

template <class Function>
Function* next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED int setenv(const char* name, const char* value, int overwrite) {
  tell(name);
  return next<int(const char*, const char*, int)>("setenv")(name, value, overwrite);
}

EXPORTED int putenv(char* text) {
  tell(text);
  return next<int(char*)>("putenv")(text);
}

EXPORTED int unsetenv(const char* name) {
  tell(name);
  return next<int(const char*)>("unsetenv")(name);
}
