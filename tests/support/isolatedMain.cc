#include <algorithm>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/support/isolation.h"

// The main program of tests that use the real killall.
int main(int count, char** arguments) {
  const bool listing = std::any_of(arguments, arguments + count, [](const char* argument) {
    return std::string_view(argument).starts_with("--gtest_list_tests");
  });
  if (!listing) {
    isolate(arguments);
  }
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
