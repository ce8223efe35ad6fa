#include "tests/support/isolation.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <vector>

void isolate(char** arguments) {
  if (std::getenv("QUIETDIAL_TEST_ISOLATED")) {
    return;
  }
  std::array<char, 4096> self{};
  if (readlink("/proc/self/exe", self.data(), self.size() - 1) > 0) {
    std::vector<const char*> command{"python3", "-B", QD_ISOLATED, self.data()};
    for (char** argument = arguments + 1; *argument; ++argument) {
      command.push_back(*argument);
    }
    command.push_back(nullptr);
    execvp(command.front(), const_cast<char**>(command.data()));
  }
  std::perror("The program cannot be isolated");
  std::exit(EXIT_FAILURE);
}
