#include "platform/quartzcore/CADisplayLink.h"

#include <algorithm>
#include <utility>

#include "platform/services.h"

constexpr ClassOf<CADisplayLink> CADisplayLink::classObject{"CADisplayLink"};

namespace {

using Links = std::vector<std::shared_ptr<CADisplayLink>>;

// The links that the main run loop keeps.
Links& addedLinks() {
  // Never destroyed: views may still invalidate their links while the process ends.
  static auto* links = new Links;  // NOLINT(cppcoreguidelines-owning-memory)
  return *links;
}

}  // namespace

std::shared_ptr<CADisplayLink> CADisplayLink::displayLinkWithTargetSelector(
    const std::shared_ptr<NSObject>& target, std::string_view selector) {
  auto link = allocInit<CADisplayLink>();
  link->target_ = target;
  link->selector_ = selector;
  return link;
}

void CADisplayLink::addToRunLoopForMode(NSRunLoop& /*runLoop*/, NSRunLoopMode mode) {
  if (!target_) {
    return;
  }
  if (modes_.empty()) {
    addedLinks().push_back(cast<CADisplayLink>(shared_from_this()));
  }
  modes_.push_back(mode);
  tellService();
}

void CADisplayLink::setPaused(bool paused) {
  if (std::exchange(paused_, paused) != paused) {
    tellService();
  }
}

void CADisplayLink::invalidate() {
  const auto keptAlive = shared_from_this();
  modes_.clear();
  target_.reset();
  std::erase_if(addedLinks(), [this](const auto& link) { return link.get() == this; });
  tellService();
}

void CADisplayLink::screenDidRefresh(double duration) {
  // A copy: links may be added and invalidated meanwhile.
  const Links links = addedLinks();
  for (const auto& link : links) {
    link->refresh(duration);
  }
}

void CADisplayLink::refresh(double duration) {
  const auto& loop = NSRunLoop::mainRunLoop();
  const bool served =
      std::ranges::any_of(modes_, [&](NSRunLoopMode mode) { return loop.serves(mode); });
  if (!served || paused_) {
    return;
  }
  duration_ = duration;
  const auto target = target_;
  target->performAction(selector_, this);
}

void CADisplayLink::tellService() {
  services().displayRefresh->setWanted(
      std::ranges::any_of(addedLinks(), [](const auto& link) { return link->isWaiting(); }));
}
