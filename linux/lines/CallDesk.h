#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "calling/CallPlan.h"
#include "calling/Line.h"
#include "linux/DevicePaths.h"

/// What a call of a number would be, as things are now: with the wish to be hidden, and without.
struct CallOffer {
  CallPlan anonymous;
  CallPlan open;
  std::string lineTitle;  ///< As people call the line; empty where there is none.
  std::string written;    ///< The number as people write it; empty where it is none.
  std::string country;    ///< The number's region where that is not the region one is in.
};

/// What came of a wish to call.
struct CallResult {
  enum class Outcome {
    kPlaced,
    kHandedOver,  ///< A program has the number and waits for its user.
    kFailed,      ///< Nothing was dialled, and nothing will be.
    kUnknown,     ///< The number has left, and nothing has answered for it.
    kChanged,     ///< It would no longer be what was agreed on; nothing was dialled.
    kGivenUp,     ///< It was given up in time; nothing was dialled.
  };

  Outcome outcome = Outcome::kFailed;
  std::string sentence;  ///< For the user; empty where there is nothing to say beside the outcome.
};

/// Offers calls and places them on this machine's lines, by the settings as they are at that
/// moment. Waits for others, up to a minute; one thread at a time.
class CallDesk {
 public:
  struct Terms {
    DevicePaths paths;         ///< Where the settings lie.
    std::string via = "auto";  ///< A line's name; "print" writes to `out`.
    std::string region{};      ///< Where the user says to be; empty for nothing.
    bool isTrial = false;      ///< Without a line what would be dialled is written to `out`.
    std::ostream* out = nullptr;
  };

  explicit CallDesk(Terms terms);

  CallOffer offer(const std::string& text) const;

  /// Places the call if it is still what `agreed` says. An emergency call goes on to the next line
  /// where one has definitely failed; nothing else is tried twice. `isGivenUp` is asked once more
  /// before each line gets the number.
  CallResult place(const std::string& text, bool isAnonymous, const CallPlan& agreed,
                   const std::function<bool()>& isGivenUp) const;

 private:
  class Moment;

  Terms terms_;
};
