#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <unistd.h>
#include <vector>

#include <gtest/gtest.h>

// The main program of tests that use the real killall, which reaches every process of its name: it
// starts itself again through the program that keeps the two apart.

namespace {

void startIsolated(char** arguments) {
  std::array<char, 4096> self{};
  if (readlink("/proc/self/exe", self.data(), self.size() - 1) <= 0) {
    return;
  }
  std::vector<const char*> command{"python3", "-B", QD_ISOLATED, self.data()};
  for (char** argument = arguments + 1; *argument; ++argument) {
    command.push_back(*argument);
  }
  command.push_back(nullptr);
  execvp(command.front(), const_cast<char**>(command.data()));
}

}  // namespace

int main(int count, char** arguments) {
  const bool listing = std::any_of(arguments, arguments + count, [](const char* argument) {
    return std::string_view(argument).starts_with("--gtest_list_tests");
  });
  if (!listing && !std::getenv("QUIETDIAL_TEST_ISOLATED")) {
    startIsolated(arguments);
    std::perror("The test cannot be isolated");
    return EXIT_FAILURE;
  }
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
