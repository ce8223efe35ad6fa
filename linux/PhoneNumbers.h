#pragma once

#include "calling/NumberingPlans.h"

/// The numbering plans of a library that takes longer to load than most commands to run: it lies
/// behind a module of its own, which is opened when the first of these objects is made. A program
/// whose module cannot be opened ends there, as one does whose libraries are missing.
class PhoneNumbers final : public NumberingPlans {
 public:
  PhoneNumbers();

  bool isRegion(std::string_view region) const override { return plans_.isRegion(region); }
  bool isEmergency(std::string_view digits, std::string_view region) const override {
    return plans_.isEmergency(digits, region);
  }
  std::optional<Number> parse(std::string_view text, std::string_view region) const override {
    return plans_.parse(text, region);
  }
  std::optional<Number> parseInContext(std::string_view number,
                                       std::string_view context) const override {
    return plans_.parseInContext(number, context);
  }
  std::string regionOfContext(std::string_view context) const override {
    return plans_.regionOfContext(context);
  }
  int callingCode(std::string_view region) const override { return plans_.callingCode(region); }
  std::optional<std::string> internationalPrefix(std::string_view region) const override {
    return plans_.internationalPrefix(region);
  }

 private:
  const NumberingPlans& plans_;
};
