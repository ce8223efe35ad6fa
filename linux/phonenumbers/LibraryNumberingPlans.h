#pragma once

#include "calling/NumberingPlans.h"

/// The numbering plans as the libphonenumber library has them. Its own log is off: no number is
/// written anywhere.
class LibraryNumberingPlans final : public NumberingPlans {
 public:
  bool isRegion(std::string_view region) const override;
  bool isEmergency(std::string_view digits, std::string_view region) const override;
  std::optional<Number> parse(std::string_view text, std::string_view region) const override;
  std::optional<Number> parseInContext(std::string_view number,
                                       std::string_view context) const override;
  std::string regionOfContext(std::string_view context) const override;
  int callingCode(std::string_view region) const override;
  std::optional<std::string> internationalPrefix(std::string_view region) const override;
};

/// What the module gives to the program that opens it; lives as long as the program.
extern "C" __attribute__((visibility("default"))) const NumberingPlans* quietdialNumberingPlans();
