#include "linux/StandardErrorLog.h"

#include <cstdio>

void StandardErrorLog::write(const std::string& line) {
  std::fprintf(stderr, "%s\n", line.c_str());
}
