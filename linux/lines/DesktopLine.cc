#include "linux/lines/DesktopLine.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include <systemd/sd-bus.h>

#include "linux/desktopProgram.h"
#include "linux/lines/PhoneLinks.h"
#include "linux/lines/telephoneLinks.h"

namespace {

using Outcome = Placement::Outcome;

constexpr std::chrono::seconds kActivationPatience(30);
// A program that cannot be started, or does not know its arguments, ends by then.
constexpr std::chrono::milliseconds kStartPatience(500);

struct Dialler {
  std::string_view id;
  std::string_view title;
  bool decodes;  ///< Reads "%23" as a hash.
};

constexpr std::array kDiallers{
    Dialler{"org.kde.phone.dialer.desktop", "Plasma Dialer", false},
    Dialler{"linphone.desktop", "Linphone", true},
    Dialler{"org.kde.kdeconnect.handler.desktop", "KDE Connect", true},
};

const Dialler* diallerOf(std::string_view id) {
  const auto* const found = std::ranges::find(kDiallers, id, &Dialler::id);
  return found == kDiallers.end() ? nullptr : found;
}

// Whether it is one of ours, which would come back here for ever.
bool isOurs(const DesktopEntry& entry) {
  const auto command = entry.commandFor("");
  const auto program = command.empty() ? std::string() : command.front();
  const auto file = program.substr(program.rfind('/') + 1);
  return entry.id.starts_with("me.orlanvey.QuietDial") ||
         entry.id.starts_with("me.orlanvey.quietdial") ||
         std::ranges::any_of(command,
                             [](const std::string& word) {
                               return word.substr(word.rfind('/') + 1).starts_with("quietdial");
                             }) ||
         file == "xdg-open";
}

}  // namespace

std::shared_ptr<DesktopLine> DesktopLine::forEntry(const std::string& id,
                                                   std::shared_ptr<Bus> session) {
  auto entry = DesktopEntry::find(id);
  if (!entry || !entry->opens(kTelephoneLinks) || entry->isBrowser() || isOurs(*entry)) {
    return nullptr;
  }
  if (const auto* dialler = diallerOf(id)) {
    entry->name = dialler->title;
  }
  return std::make_shared<DesktopLine>(std::move(*entry), std::move(session));
}

std::shared_ptr<DesktopLine> DesktopLine::known(const std::shared_ptr<Bus>& session) {
  const std::string chosen = PhoneLinks().handlerBesidesOurs();
  if (auto line = diallerOf(chosen) ? forEntry(chosen, session) : nullptr) {
    return line;
  }
  for (const auto& dialler : kDiallers) {
    if (auto line = forEntry(std::string(dialler.id), session)) {
      return line;
    }
  }
  return nullptr;
}

DesktopLine::DesktopLine(DesktopEntry entry, std::shared_ptr<Bus> session)
    : entry_(std::move(entry)), session_(std::move(session)) {}

Placement DesktopLine::place(const CallPlan& plan) {
  const auto* dialler = diallerOf(entry_.id);
  const std::string address = telephoneLink(plan.dial, !dialler || dialler->decodes);
  if (!(entry_.isActivatable ? activate(address) : launch(address))) {
    return {Outcome::kFailed, entry_.name + " does not start."};
  }
  return {Outcome::kHandedOver, "Handed to " + entry_.name + ": press Call there."};
}

bool DesktopLine::launch(const std::string& address) const {
  const auto command = entry_.commandFor(address);
  return !command.empty() && launchDesktopProgram(command, kStartPatience);
}

bool DesktopLine::activate(const std::string& address) {
  const std::string service = entry_.id.substr(0, entry_.id.rfind('.'));
  std::string path = "/" + service;
  std::ranges::replace(path, '.', '/');
  std::ranges::replace(path, '-', '_');
  const auto opened = session_->call(
      {service, path, "org.freedesktop.Application", "Open"},
      [&](sd_bus_message* message) {
        return sd_bus_message_append(message, "asa{sv}", 1, address.c_str(), 0);
      },
      kActivationPatience);
  return opened.outcome != BusAnswer::Outcome::kRefused;
}
