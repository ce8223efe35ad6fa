#include "linux/Syslog.h"

#include <syslog.h>
#include <utility>

Syslog::Syslog(std::string program) : program_(std::move(program)) {
  openlog(program_.c_str(), LOG_PID, LOG_USER);
}

Syslog::~Syslog() {
  closelog();
}

void Syslog::write(const std::string& line) {
  syslog(LOG_NOTICE, "%s", line.c_str());
}
