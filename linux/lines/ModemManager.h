#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "calling/Surroundings.h"
#include "linux/MobileCountries.h"
#include "linux/lines/Bus.h"

/// The modems that ModemManager looks after, over its D-Bus interface. Never starts it. One thread
/// at a time.
class ModemManager {
 public:
  /// The states of a modem that matter here (MMModemState).
  enum State { kLocked = 2, kDisabled = 3, kEnabled = 6, kRegistered = 8 };
  /// The states of a call (MMCallState).
  enum CallState { kNew = 0, kTerminated = 7 };

  struct Modem {
    std::string path;
    std::int64_t state = 0;
    bool hasVoice = false;
    std::string sim;           ///< Its object's path; empty for none.
    std::string operatorCode;  ///< "26201"; empty where none serves.
    std::vector<std::string> calls;
  };

  explicit ModemManager(std::shared_ptr<Bus> bus);

  /// As they are now.
  std::vector<Modem> modems() const;

  /// The one that calls go through: with voice, and with a network if one of them has; else one
  /// whose SIM is locked.
  std::optional<Modem> callingModem() const;

  /// Whether there is a modem to place calls with.
  bool hasLine() const { return callingModem().has_value(); }
  /// Whether one can place calls now.
  bool canCall() const;

  /// Adds what the modems know of the network.
  void describe(Network& network) const;

  /// The state of a call by its object's path; nothing where it is gone.
  std::optional<std::int64_t> callState(const std::string& call) const;

  BusAnswer createCall(const std::string& modem, const std::string& number);
  BusAnswer startCall(const std::string& call);
  void deleteCall(const std::string& modem, const std::string& call);

 private:
  std::shared_ptr<Bus> bus_;
  MobileCountries countries_;
};
