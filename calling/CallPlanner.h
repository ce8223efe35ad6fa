#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "calling/CallPlan.h"
#include "calling/EmergencyNumbers.h"
#include "calling/NumberReader.h"
#include "calling/NumberingPlans.h"
#include "calling/Surroundings.h"

/// The rules by which a number becomes what a line dials, or is refused; docs/calling.md tells
/// them. Places nothing and asks nobody. Any thread.
class CallPlanner {
 public:
  /// `plans` is kept by reference.
  CallPlanner(const NumberingPlans& plans, Surroundings surroundings);

  /// Whether the request is an emergency call, whose line is chosen first of all.
  bool isEmergency(const CallRequest& request) const;

  /// `line` is null where none can place the call.
  CallPlan plan(const CallRequest& request, const LineFacts* line) const;

  /// Every prefix that may stand in front of a number that is given, longest first.
  const std::vector<std::string>& knownPrefixes() const { return knownPrefixes_; }

 private:
  class Planning;

  const NumberingPlans& plans_;
  Surroundings surroundings_;
  std::string storedPrefix_;  // without blanks at its ends
  std::string region_;
  std::vector<std::string> knownPrefixes_;
};
