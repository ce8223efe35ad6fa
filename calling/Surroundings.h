#pragma once

#include <optional>
#include <string>
#include <vector>

/// What is known beside the number when it is dialled.

/// The settings as far as calls need them.
struct CallSettings {
  bool areReadable = true;  ///< False for a file that is there and cannot be read.
  std::string prefix;       ///< The one in force, as stored.
  std::string customPrefix;
  std::string country;  ///< The chosen row of the table of countries.
};

/// What the machine's modems tell, whichever program places the call.
struct Network {
  std::optional<bool> hasSIM;  ///< Nothing where no modem can tell.
  std::string region;          ///< Of the network that serves; empty where unknown.
  std::string simRegion;       ///< Of the network that issued the SIM; empty where unknown.
  std::vector<std::string> emergencyNumbers;  ///< What modem and SIM count as such.
};

struct Surroundings {
  CallSettings settings{};
  Network network{};
  std::string givenRegion{};   ///< What the user says; empty for nothing.
  std::string localeRegion{};  ///< Of the user's locale; empty where unknown.
};

/// What is known of the line that would place the call.
struct LineFacts {
  std::string name;
  bool hidesByItself = false;  ///< Asks the network without a prefix.
  bool takesPlusBehindPrefix = true;
  bool inCall = false;
};
