#include "platform/services.h"

#include <utility>

namespace {

Services& installed() {
  // Never destroyed: queued work may still ask for a service while the process ends.
  static auto* services = new Services;  // NOLINT(cppcoreguidelines-owning-memory)
  return *services;
}

}  // namespace

void installServices(Services services) {
  installed() = std::move(services);
}

const Services& services() {
  return installed();
}
