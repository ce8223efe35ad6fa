#include "linux/lines/ModemManager.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include <systemd/sd-bus.h>

namespace {

constexpr const char* kService = "org.freedesktop.ModemManager1";
constexpr const char* kPath = "/org/freedesktop/ModemManager1";
constexpr const char* kModem = "org.freedesktop.ModemManager1.Modem";
constexpr const char* kNetwork = "org.freedesktop.ModemManager1.Modem.Modem3gpp";
constexpr const char* kVoice = "org.freedesktop.ModemManager1.Modem.Voice";
constexpr const char* kCall = "org.freedesktop.ModemManager1.Call";
constexpr const char* kSIM = "org.freedesktop.ModemManager1.Sim";

constexpr std::size_t kCountryDigits = 3;
constexpr std::chrono::seconds kStartPatience(30);

// "/" stands for no object.
std::string pathIn(const PropertyListDictionary& values, std::string_view key) {
  const auto path = textIn(values, key);
  return path == "/" ? std::string() : path;
}

int rank(const ModemManager::Modem& modem) {
  if (!modem.hasVoice) {
    return 0;
  }
  return modem.state >= ModemManager::kRegistered ? 2 : 1;
}

}  // namespace

ModemManager::ModemManager(std::shared_ptr<Bus> bus) : bus_(std::move(bus)) {}

std::vector<ModemManager::Modem> ModemManager::modems() const {
  std::vector<Modem> modems;
  if (!bus_->isRunning(kService)) {
    return modems;
  }
  for (const auto& [path, value] : bus_->managedObjects(kService, kPath)) {
    const auto* object = value.get<PropertyListDictionary>();
    if (!object || !object->contains(kModem)) {
      continue;
    }
    const auto& modem = dictionaryIn(*object, kModem);
    modems.push_back({.path = path,
                      .state = numberIn(modem, "State", 0),
                      .hasVoice = object->contains(kVoice),
                      .sim = pathIn(modem, "Sim"),
                      .operatorCode = textIn(dictionaryIn(*object, kNetwork), "OperatorCode"),
                      .calls = textsIn(dictionaryIn(*object, kVoice), "Calls")});
  }
  return modems;
}

std::optional<ModemManager::Modem> ModemManager::callingModem() const {
  auto found = modems();
  std::erase_if(found,
                [](const Modem& modem) { return !modem.hasVoice && modem.state != kLocked; });
  const auto best = std::ranges::max_element(found, {}, rank);
  return best == found.end() ? std::nullopt : std::optional(*best);
}

bool ModemManager::canCall() const {
  const auto modem = callingModem();
  return modem && modem->hasVoice && modem->state >= kEnabled;
}

void ModemManager::describe(Network& network) const {
  for (const auto& modem : modems()) {
    network.hasSIM = network.hasSIM.value_or(false) || !modem.sim.empty();
    if (network.region.empty()) {
      network.region = countries_.regionOf(modem.operatorCode);
    }
    if (modem.sim.empty()) {
      continue;
    }
    const auto sim = bus_->properties(kService, modem.sim, kSIM);
    for (auto& number : textsIn(sim, "EmergencyNumbers")) {
      network.emergencyNumbers.push_back(std::move(number));
    }
    if (network.simRegion.empty()) {
      network.simRegion = countries_.regionOf(textIn(sim, "OperatorIdentifier"));
    }
    if (network.simRegion.empty()) {
      // The subscriber's number begins with the country's.
      network.simRegion = countries_.regionOf(textIn(sim, "Imsi").substr(0, kCountryDigits));
    }
  }
}

std::optional<std::int64_t> ModemManager::callState(const std::string& call) const {
  const auto properties = bus_->properties(kService, call, kCall);
  return properties.contains("State") ? std::optional(numberIn(properties, "State", kNew))
                                      : std::nullopt;
}

BusAnswer ModemManager::createCall(const std::string& modem, const std::string& number) {
  return bus_->call({kService, modem, kVoice, "CreateCall"}, [&](sd_bus_message* message) {
    return sd_bus_message_append(message, "a{sv}", 1, "number", "s", number.c_str());
  });
}

BusAnswer ModemManager::startCall(const std::string& call) {
  return bus_->call({kService, call, kCall, "Start"}, {}, kStartPatience);
}

void ModemManager::deleteCall(const std::string& modem, const std::string& call) {
  bus_->call({kService, modem, kVoice, "DeleteCall"}, [&](sd_bus_message* message) {
    return sd_bus_message_append(message, "o", call.c_str());
  });
}
