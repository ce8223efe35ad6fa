#pragma once

#include <string>

#include "calling/CallPlan.h"
#include "calling/Surroundings.h"

/// What came of handing a call to a line.
struct Placement {
  enum class Outcome {
    kPlaced,
    kHandedOver,  ///< A program has the number and waits for its user.
    kFailed,      ///< Nothing was dialled, and nothing will be.
    kUnknown,     ///< The number has left, and nothing has answered for it.
  };

  Outcome outcome = Outcome::kFailed;
  std::string sentence;  ///< For the user; empty where there is nothing to say beside the outcome.
};

/// One way of placing calls. Waits for others, up to a minute; any thread, one at a time.
class Line {
 public:
  Line() = default;
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;
  Line(Line&&) = delete;
  Line& operator=(Line&&) = delete;
  virtual ~Line() = default;

  /// What it is called in `--via`: "modem".
  virtual std::string name() const = 0;

  /// As they are now; asks others.
  virtual LineFacts facts() = 0;

  /// As people call it: "GNOME Calls".
  virtual std::string title() const = 0;

  /// Places a plan that was made for this line and not refused. Once: what becomes of it is never
  /// tried a second time.
  virtual Placement place(const CallPlan& plan) = 0;
};
