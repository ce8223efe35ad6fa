#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "calling/NumberingPlans.h"
#include "calling/Surroundings.h"

/// What counts as an emergency number where a call is placed: 112 and 911, those of the modem and
/// its SIM, those that a phone without a SIM knows (3GPP TS 22.101, 10.1.1), and those of every
/// region that the user could be in or mean. Too many rather than too few: a number that is one is
/// dialled bare.
class EmergencyNumbers {
 public:
  /// `plans` is kept by reference. `contextRegion` is that of the number's own address, or empty.
  EmergencyNumbers(const NumberingPlans& plans, const Surroundings& surroundings,
                   std::string_view contextRegion);

  /// Whether the whole text is one.
  bool contains(std::string_view text) const;

  /// Whether the text begins with one, so that an exchange that reads digit by digit reaches it.
  bool beginsWithOne(std::string_view text) const;

 private:
  const NumberingPlans& plans_;
  std::vector<std::string> listed_;
  std::vector<std::string> regions_;
};
