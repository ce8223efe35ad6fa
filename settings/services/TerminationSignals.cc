#include "settings/services/TerminationSignals.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

// The end of the pipe that the handler writes to; a handler may use little else.
volatile std::sig_atomic_t& writeEnd() {
  static volatile std::sig_atomic_t descriptor = -1;
  return descriptor;
}

void handle(int /*signal*/) {
  const char byte = 0;
  // A full pipe has said so already.
  [[maybe_unused]] const auto written = write(writeEnd(), &byte, 1);
}

}  // namespace

TerminationSignals::TerminationSignals() {
  if (pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    return;  // The signals then end the program as they do by themselves.
  }
  writeEnd() = pipe_[1];
  notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
  connect(notifier_.get(), &QSocketNotifier::activated, this, [this] {
    char byte = 0;
    if (read(pipe_[0], &byte, 1) == 1) {
      emit received();
    }
  });
  for (const int signal : kSignals) {
    struct sigaction action {};
    action.sa_handler = handle;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
  }
}

TerminationSignals::~TerminationSignals() {
  if (!notifier_) {
    return;
  }
  for (const int signal : kSignals) {
    std::signal(signal, SIG_DFL);
  }
  notifier_.reset();
  writeEnd() = -1;
  close(pipe_[0]);
  close(pipe_[1]);
}
