#include "linux/userNamespaces.h"

#include <cerrno>
#include <sched.h>
#include <unistd.h>

#include <sys/wait.h>

bool canMakeUserNamespaces() {
  const pid_t child = fork();
  if (child == 0) {
    _exit(unshare(CLONE_NEWUSER | CLONE_NEWPID | CLONE_NEWNET) == 0 ? 0 : 1);
  }
  int status = -1;
  while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return child > 0 && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
