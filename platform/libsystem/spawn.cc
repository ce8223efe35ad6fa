#include "platform/libsystem/spawn.h"

#include "platform/services.h"

namespace libsystem {

int posix_spawn(int& pid, const std::string& path, const std::vector<std::string>& arguments,
                const std::vector<std::string>* environment) {
  return services().processes->posixSpawn(pid, path, arguments, environment);
}

int waitpid(int pid, int& status, int options) {
  return services().processes->waitpid(pid, status, options);
}

}  // namespace libsystem
