#include "linux/LowMemoryWatch.h"

#include <array>
#include <poll.h>
#include <utility>

#include <sys/eventfd.h>

#include "linux/LowMemoryMonitorSignal.h"
#include "linux/MemoryPressureFile.h"
#include "platform/foundation/MainQueue.h"

std::vector<LowMemoryWatch::SourceMaker> LowMemoryWatch::systemSources() {
  return {[] { return LowMemoryMonitorSignal::connect(); },
          [] { return MemoryPressureFile::open(); }};
}

LowMemoryWatch::LowMemoryWatch(std::vector<SourceMaker> sources, std::function<void()> warn)
    : warn_(std::make_shared<const std::function<void()>>(std::move(warn))),
      end_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      thread_([this, sources = std::move(sources)] { run(sources); }) {}

LowMemoryWatch::~LowMemoryWatch() {
  eventfd_write(end_.get(), 1);
  thread_.join();
}

void LowMemoryWatch::run(const std::vector<SourceMaker>& sources) {
  for (const auto& make : sources) {
    const auto source = make();
    if (source && !follow(*source)) {
      return;
    }
  }
}

bool LowMemoryWatch::follow(LowMemorySource& source) {
  while (true) {
    const auto wanted = source.wanted();
    std::array<pollfd, 2> descriptors{
        {{end_.get(), POLLIN, 0}, {wanted.descriptor, wanted.events, 0}}};
    poll(descriptors.data(), descriptors.size(), wanted.timeout);
    if (descriptors[0].revents != 0) {
      return false;
    }
    switch (source.process(descriptors[1].revents)) {
      case LowMemorySource::News::kGone:
        return true;
      case LowMemorySource::News::kLowMemory:
        MainQueue::shared().async([weak = std::weak_ptr(warn_)] {
          if (const auto warn = weak.lock()) {
            (*warn)();
          }
        });
        break;
      case LowMemorySource::News::kNone:
        break;
    }
  }
}
