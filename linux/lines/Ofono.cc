#include "linux/lines/Ofono.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <systemd/sd-bus.h>

namespace {

constexpr const char* kService = "org.ofono";
constexpr const char* kVoice = "org.ofono.VoiceCallManager";
constexpr const char* kNetwork = "org.ofono.NetworkRegistration";
constexpr const char* kSIM = "org.ofono.SimManager";

constexpr std::size_t kCountryDigits = 3;
constexpr std::chrono::seconds kDialPatience(30);

constexpr const char* kHide = "enabled";
constexpr const char* kAsSubscribed = "default";

bool flagIn(const PropertyListDictionary& values, std::string_view key) {
  return numberIn(values, key, 0) != 0;
}

}  // namespace

bool Ofono::Modem::has(std::string_view interface) const {
  return std::ranges::find(interfaces, interface) != interfaces.end();
}

bool Ofono::Modem::hasVoice() const {
  return has(kVoice);
}

Ofono::Ofono(std::shared_ptr<Bus> bus) : bus_(std::move(bus)) {}

std::vector<Ofono::Modem> Ofono::modems() const {
  std::vector<Modem> modems;
  if (!bus_->isRunning(kService)) {
    return modems;
  }
  const auto answer = bus_->call({kService, "/", "org.ofono.Manager", "GetModems"}).first();
  const auto* list = answer.get<PropertyListArray>();
  for (const auto& element : list ? *list : PropertyListArray()) {
    const auto* pair = element.get<PropertyListArray>();
    const auto* path = pair && pair->size() == 2 ? pair->front().get<std::string>() : nullptr;
    const auto* values = path ? pair->back().get<PropertyListDictionary>() : nullptr;
    if (values) {
      modems.push_back({.path = *path,
                        .type = textIn(*values, "Type"),
                        .isOnline = flagIn(*values, "Online"),
                        .interfaces = textsIn(*values, "Interfaces")});
    }
  }
  return modems;
}

std::optional<Ofono::Modem> Ofono::callingModem() const {
  auto found = modems();
  std::erase_if(found, [](const Modem& modem) { return !modem.isOnline || !modem.hasVoice(); });
  const auto best = std::ranges::max_element(
      found, {}, [](const Modem& modem) { return modem.type == "hardware"; });
  return best == found.end() ? std::nullopt : std::optional(*best);
}

void Ofono::describe(Network& network) const {
  for (const auto& modem : modems()) {
    if (modem.has(kVoice)) {
      for (auto& number : textsIn(ask(modem, kVoice), "EmergencyNumbers")) {
        network.emergencyNumbers.push_back(std::move(number));
      }
    }
    if (modem.has(kNetwork) && network.region.empty()) {
      network.region = countries_.regionOf(textIn(ask(modem, kNetwork), "MobileCountryCode"));
    }
    if (modem.has(kSIM)) {
      const auto sim = ask(modem, kSIM);
      network.hasSIM = network.hasSIM.value_or(false) || flagIn(sim, "Present");
      auto country = textIn(sim, "MobileCountryCode");
      if (country.empty()) {
        // The subscriber's number begins with it.
        country = textIn(sim, "SubscriberIdentity").substr(0, kCountryDigits);
      }
      if (network.simRegion.empty()) {
        network.simRegion = countries_.regionOf(country);
      }
    }
  }
}

bool Ofono::isInCall(const Modem& modem) const {
  const auto answer = bus_->call({kService, modem.path, kVoice, "GetCalls"}).first();
  const auto* calls = answer.get<PropertyListArray>();
  return calls && !calls->empty();
}

BusAnswer Ofono::dial(const Modem& modem, const std::string& number, bool hides) {
  return bus_->call(
      {kService, modem.path, kVoice, "Dial"},
      [&](sd_bus_message* message) {
        return sd_bus_message_append(message, "ss", number.c_str(), hides ? kHide : kAsSubscribed);
      },
      kDialPatience);
}

PropertyListDictionary Ofono::ask(const Modem& modem, const char* interface) const {
  const auto answer = bus_->call({kService, modem.path, interface, "GetProperties"}).first();
  const auto* values = answer.get<PropertyListDictionary>();
  return values ? *values : PropertyListDictionary();
}
