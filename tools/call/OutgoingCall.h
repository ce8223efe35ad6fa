#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "calling/CallPlanner.h"
#include "linux/PhoneNumbers.h"
#include "linux/lines/Lines.h"
#include "tools/Command.h"
#include "tools/call/CallOptions.h"
#include "tools/call/CallStatus.h"

/// A call on its way from the options to a line.
class OutgoingCall {
 public:
  /// The options outlive it.
  OutgoingCall(const CallOptions& options, CallRequest request, Streams streams);

  /// Plans, tells, asks and places it. The exit status.
  int run();

 private:
  Surroundings surroundings() const;
  std::vector<std::shared_ptr<Line>> linesFor(bool isEmergency) const;
  int refuse(const CallPlan& plan, Refusal refusal);
  int tell(const CallPlan& plan, Line& line);
  std::optional<int> confirm(const CallPlan& plan, Line& line);
  Placement place(const CallPlan& plan, Line& line) const;
  int finish(const CallPlan& plan, const Placement& placement);

  const CallOptions& options_;
  CallRequest request_;
  Streams streams_;
  const PhoneNumbers plans_;
  const Lines lines_;
  CallPlanner planner_;
};
