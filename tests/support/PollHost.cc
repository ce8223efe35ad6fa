#include "tests/support/PollHost.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <poll.h>

#include <sys/eventfd.h>

#include "platform/foundation/MainQueue.h"

PollHost::PollHost(DBusNotifications& notifications)
    : notifications_(notifications), wake_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  const int descriptor = wake_.get();
  MainQueue::shared().setWakeHook([descriptor] { eventfd_write(descriptor, 1); });
}

PollHost::~PollHost() {
  MainQueue::shared().setWakeHook({});
}

bool PollHost::runUntil(const std::function<bool()>& done, std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (true) {
    notifications_.process();
    const bool more = MainQueue::shared().runTurn();
    if (done()) {
      return true;
    }
    if (std::chrono::steady_clock::now() >= end) {
      return false;
    }
    const auto wanted = notifications_.wanted();
    std::array<pollfd, 2> descriptors{
        {{wake_.get(), POLLIN, 0}, {wanted.descriptor, wanted.events, 0}}};
    poll(descriptors.data(), descriptors.size(), more ? 0 : timeout(end));
    eventfd_t ignored = 0;
    eventfd_read(wake_.get(), &ignored);
  }
}

// Until the nearest of the end, the queue's next delayed call and what the notifications want.
int PollHost::timeout(std::chrono::steady_clock::time_point end) const {
  using std::chrono::duration;
  using std::chrono::duration_cast;
  using std::chrono::milliseconds;

  auto nearest = std::chrono::ceil<milliseconds>(end - std::chrono::steady_clock::now());
  if (const auto deadline = MainQueue::shared().nextDeadline()) {
    const duration<double> left(*deadline - services().clock->now());
    if (left < nearest) {
      nearest = std::chrono::ceil<milliseconds>(left);
    }
  }
  const int wanted = notifications_.wanted().timeout;
  if (wanted >= 0) {
    nearest = std::min(nearest, milliseconds(wanted));
  }
  return static_cast<int>(std::max<milliseconds::rep>(nearest.count(), 0));
}
