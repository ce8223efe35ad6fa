#include "calling/lastCheck.h"

namespace {

bool isDialText(std::string_view text) {
  int plusses = 0;
  for (const char c : text) {
    if (c == '+') {
      ++plusses;
    } else if (!((c >= '0' && c <= '9') || c == '*' || c == '#')) {
      return false;
    }
  }
  return !text.empty() && plusses <= 1;
}

bool hidesAnEmergencyNumber(const LastCheck& check) {
  for (const auto& known : check.knownPrefixes) {
    if (!known.empty() && check.dial.starts_with(known) &&
        check.isEmergency(check.dial.substr(known.size()))) {
      return true;
    }
  }
  return false;
}

// Whether the prefix and what follows it read as an emergency number from the front.
bool prefixMakesAnEmergencyNumber(const LastCheck& check) {
  for (std::size_t end = 1; end <= check.dial.size(); ++end) {
    if (check.isEmergency(check.dial.substr(0, end))) {
      return true;
    }
  }
  return false;
}

// Whether an exchange reads the first digits behind the prefix as the rest of another code.
bool numberMakesAnotherCode(const LastCheck& check) {
  for (const auto& known : check.knownPrefixes) {
    if (known.size() > check.prefix.size() && check.dial.starts_with(known)) {
      return true;
    }
  }
  return false;
}

}  // namespace

bool passesLastCheck(const LastCheck& check) {
  if (!isDialText(check.dial)) {
    return false;
  }
  if (check.isEmergency(check.dial)) {
    return !check.lineHides;
  }
  if (hidesAnEmergencyNumber(check)) {
    return false;
  }
  if (!check.isAnonymous) {
    return !check.lineHides;
  }
  if (check.lineHides) {
    return true;
  }
  const bool hasPrefix = !check.prefix.empty() && check.dial.size() > check.prefix.size() &&
                         check.dial.starts_with(check.prefix);
  if (!hasPrefix || check.isEmergency(check.dial.substr(check.prefix.size()))) {
    return false;
  }
  return !prefixMakesAnEmergencyNumber(check) && !numberMakesAnotherCode(check);
}
