#include "settings/messages/complain.h"

#include <cerrno>
#include <cstdio>

void complain(const std::string& line) {
  std::fprintf(stderr, "%s: %s\n", program_invocation_short_name, line.c_str());
}
