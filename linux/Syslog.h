#pragma once

#include <string>

#include "platform/services.h"

/// The machine's log: syslog, which the journal collects where there is one. One at a time.
class Syslog final : public SystemLog {
 public:
  /// Lines are marked with the program's name.
  explicit Syslog(std::string program);
  ~Syslog() override;
  Syslog(const Syslog&) = delete;
  Syslog& operator=(const Syslog&) = delete;
  Syslog(Syslog&&) = delete;
  Syslog& operator=(Syslog&&) = delete;

  void write(const std::string& line) override;

 private:
  std::string program_;  // the system keeps a pointer to it
};
