#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "calling/Surroundings.h"
#include "linux/MobileCountries.h"
#include "linux/lines/Bus.h"

/// The modems that oFono looks after, over its D-Bus interface. Never starts it. One thread at a
/// time.
class Ofono {
 public:
  struct Modem {
    std::string path;
    std::string type;  ///< "hardware", "hfp" for a phone on Bluetooth, and others.
    bool isOnline = false;
    std::vector<std::string> interfaces;

    bool has(std::string_view interface) const;
    bool hasVoice() const;
  };

  explicit Ofono(std::shared_ptr<Bus> bus);

  /// As they are now.
  std::vector<Modem> modems() const;

  /// The one that calls go through: online, with voice, one of its own hardware first.
  std::optional<Modem> callingModem() const;

  /// Adds what the modems know of the network.
  void describe(Network& network) const;

  /// Whether a call is on, of whatever kind.
  bool isInCall(const Modem& modem) const;

  BusAnswer dial(const Modem& modem, const std::string& number, bool hides);

 private:
  PropertyListDictionary ask(const Modem& modem, const char* interface) const;

  std::shared_ptr<Bus> bus_;
  MobileCountries countries_;
};
