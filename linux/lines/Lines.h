#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "calling/Line.h"
#include "calling/Surroundings.h"
#include "linux/lines/Bus.h"

/// What can place calls on this machine, and what its modems know of the network. Found when it is
/// made, and not followed after that; finding waits for others, a few seconds each at most.
class Lines {
 public:
  struct Found {
    std::shared_ptr<Line> line;
    bool isUsedByItself = true;  ///< False for one that has to be named.
  };

  Lines();

  /// In the order in which they are tried where none is named.
  const std::vector<Found>& all() const { return lines_; }
  const Network& network() const { return network_; }

  /// The lines for a call, the first choice first. `name` is a line's own, or "auto". An emergency
  /// call goes to what reaches the network most directly.
  std::vector<std::shared_ptr<Line>> forCall(std::string_view name, bool isEmergency) const;

 private:
  std::shared_ptr<Bus> session_;
  std::vector<Found> lines_;
  Network network_;
};
