#include "linux/lines/GnomeCallsLine.h"

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

#include <systemd/sd-bus.h>

#include "linux/lines/PhoneLinks.h"
#include "linux/lines/telephoneLinks.h"

namespace {

using Outcome = Placement::Outcome;

constexpr const char* kService = "org.gnome.Calls";
constexpr const char* kPath = "/org/gnome/Calls";
constexpr const char* kCall = "org.gnome.Calls.Call";
constexpr const char* kDesktopFile = "org.gnome.Calls.desktop";

constexpr std::chrono::seconds kStartPatience(30);
constexpr std::chrono::seconds kCallPatience(10);
constexpr std::chrono::milliseconds kLook(50);

}  // namespace

bool GnomeCallsLine::isThere(Bus& session) {
  return session.isRunning(kService) || session.canBeStarted(kService);
}

bool GnomeCallsLine::handlesLinks() {
  return PhoneLinks().handlerBesidesOurs() == kDesktopFile;
}

GnomeCallsLine::GnomeCallsLine(std::shared_ptr<Bus> session, std::shared_ptr<ModemManager> modems)
    : session_(std::move(session)), modems_(std::move(modems)) {}

LineFacts GnomeCallsLine::facts() {
  LineFacts facts{.name = name()};
  facts.inCall = session_->isRunning(kService) && !calls(nullptr).empty();
  return facts;
}

Placement GnomeCallsLine::place(const CallPlan& plan) {
  if (!start()) {
    return {Outcome::kFailed, "GNOME Calls does not start."};
  }
  if (!canDial()) {
    return {Outcome::kFailed, "GNOME Calls has no modem to call with."};
  }
  const auto before = calls(nullptr);
  const std::string address = telephoneLink(plan.dial, true);
  const auto opened = session_->call(
      {kService, kPath, "org.freedesktop.Application", "Open"}, [&](sd_bus_message* message) {
        return sd_bus_message_append(message, "asa{sv}", 1, address.c_str(), 0);
      });
  if (opened.outcome == BusAnswer::Outcome::kRefused) {
    return {Outcome::kFailed, "GNOME Calls does not take the number."};
  }
  if (!waitForCall(plan.dial, before)) {
    return {Outcome::kUnknown, "Calls took the number and may still dial."};
  }
  return {Outcome::kPlaced, {}};
}

bool GnomeCallsLine::start() {
  if (session_->isRunning(kService)) {
    return true;
  }
  const auto started = session_->call(
      {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
       "StartServiceByName"},
      [](sd_bus_message* message) { return sd_bus_message_append(message, "su", kService, 0); },
      kStartPatience);
  return started.isAnswered();
}

// It finds its modem some time after it has started.
bool GnomeCallsLine::canDial() {
  const auto deadline = std::chrono::steady_clock::now() + kCallPatience;
  do {
    const auto description = session_
                                 ->call({kService, kPath, "org.gtk.Actions", "Describe"},
                                        [](sd_bus_message* message) {
                                          return sd_bus_message_append(message, "s", "dial");
                                        })
                                 .first();
    const auto* parts = description.get<PropertyListArray>();
    if (parts && !parts->empty() && parts->front().boolValue()) {
      return true;
    }
    if (!modems_->canCall()) {
      return false;
    }
    std::this_thread::sleep_for(kLook);
  } while (std::chrono::steady_clock::now() < deadline);
  return false;
}

std::set<std::string> GnomeCallsLine::calls(const std::string* number) {
  std::set<std::string> paths;
  for (const auto& [path, value] : session_->managedObjects(kService, kPath)) {
    const auto* object = value.get<PropertyListDictionary>();
    if (object && object->contains(kCall) &&
        (!number || textIn(dictionaryIn(*object, kCall), "Id") == *number)) {
      paths.insert(path);
    }
  }
  return paths;
}

bool GnomeCallsLine::waitForCall(const std::string& number, const std::set<std::string>& before) {
  const auto deadline = std::chrono::steady_clock::now() + kCallPatience;
  while (true) {
    const auto now = calls(&number);
    if (std::ranges::any_of(now, [&](const auto& path) { return !before.contains(path); })) {
      return true;
    }
    if (std::chrono::steady_clock::now() >= deadline) {
      return false;
    }
    std::this_thread::sleep_for(kLook);
  }
}
