#include "calling/EmergencyNumbers.h"

#include <algorithm>
#include <array>

#include "calling/Characters.h"
#include "calling/countries.h"

namespace {

constexpr std::array<std::string_view, 2> kEverywhere{"112", "911"};
constexpr std::array<std::string_view, 6> kWithoutSIM{"000", "08", "110", "118", "119", "999"};

// A SIM keeps an emergency number in three bytes of two digits each (3GPP TS 31.102, 4.2.21). What
// else a modem calls so is an ordinary number, which would lose its prefix.
constexpr std::size_t kLongestListed = 6;

bool canBeListed(std::string_view number) {
  return number.size() > 1 && number.size() <= kLongestListed && isDigits(number);
}

}  // namespace

EmergencyNumbers::EmergencyNumbers(const NumberingPlans& plans, const Surroundings& surroundings,
                                   std::string_view contextRegion)
    : plans_(plans), listed_(kEverywhere.begin(), kEverywhere.end()) {
  const auto& network = surroundings.network;
  std::ranges::copy_if(network.emergencyNumbers, std::back_inserter(listed_), canBeListed);
  if (network.hasSIM == false) {
    listed_.insert(listed_.end(), kWithoutSIM.begin(), kWithoutSIM.end());
  }
  const auto add = [this](std::string_view region) {
    if (!region.empty()) {
      regions_.emplace_back(region);
    }
  };
  add(surroundings.givenRegion);
  add(network.region);
  add(network.simRegion);
  add(regionOfCountry(surroundings.settings.country));
  add(contextRegion);
  if (regions_.empty()) {
    add(surroundings.localeRegion);
  }
}

bool EmergencyNumbers::contains(std::string_view text) const {
  if (!isDigits(text)) {
    return false;
  }
  return std::ranges::find(listed_, text) != listed_.end() ||
         std::ranges::any_of(
             regions_, [&](const std::string& region) { return plans_.isEmergency(text, region); });
}

bool EmergencyNumbers::beginsWithOne(std::string_view text) const {
  for (std::size_t length = 1; length <= text.size(); ++length) {
    if (contains(text.substr(0, length))) {
      return true;
    }
  }
  return false;
}
