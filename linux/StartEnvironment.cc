#include "linux/StartEnvironment.h"

#include <algorithm>
#include <array>
#include <unistd.h>

namespace {

// A desktop's tokens for the start that it waits for (Startup Notification Protocol; XDG Activation
// Protocol).
constexpr std::array<std::string_view, 2> kOfOneStart{"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"};

std::string_view nameOf(std::string_view variable) {
  return variable.substr(0, variable.find('='));
}

}  // namespace

const StartEnvironment& StartEnvironment::shared() {
  static const StartEnvironment environment;
  return environment;
}

StartEnvironment::StartEnvironment() {
  for (char** variable = environ; variable && *variable; ++variable) {
    if (std::ranges::find(kOfOneStart, nameOf(*variable)) == kOfOneStart.end()) {
      texts_.emplace_back(*variable);
    }
  }
  for (auto& text : texts_) {
    pointers_.push_back(text.data());
  }
  pointers_.push_back(nullptr);
}

std::optional<std::string_view> StartEnvironment::value(std::string_view name) const {
  const auto found = std::ranges::find(texts_, name, nameOf);
  return found == texts_.end() || found->size() == name.size()
             ? std::nullopt
             : std::optional(std::string_view(*found).substr(name.size() + 1));
}
