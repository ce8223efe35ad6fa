#include "linux/lines/Lines.h"

#include <algorithm>
#include <array>
#include <utility>

#include "linux/lines/DesktopLine.h"
#include "linux/lines/GnomeCallsLine.h"
#include "linux/lines/ModemLine.h"
#include "linux/lines/ModemManager.h"
#include "linux/lines/Ofono.h"
#include "linux/lines/OfonoLine.h"

namespace {

// Those that reach the network most directly first; what stands in none of these is last.
constexpr std::array<std::string_view, 3> kEmergencyOrder{"modem", "ofono", "calls"};

std::ptrdiff_t emergencyRank(const Line& line) {
  return std::ranges::find(kEmergencyOrder, line.name()) - kEmergencyOrder.begin();
}

}  // namespace

Lines::Lines() : session_(std::make_shared<Bus>(Bus::Kind::kSession)) {
  const auto system = std::make_shared<Bus>(Bus::Kind::kSystem);
  const auto modems = std::make_shared<ModemManager>(system);
  modems->describe(network_);
  const auto ofono = std::make_shared<Ofono>(system);
  ofono->describe(network_);
  const auto add = [this](std::shared_ptr<Line> line, bool isUsedByItself) {
    lines_.push_back({std::move(line), isUsedByItself});
  };
  if (GnomeCallsLine::isThere(*session_)) {
    add(std::make_shared<GnomeCallsLine>(session_, modems), GnomeCallsLine::handlesLinks());
  }
  if (modems->hasLine()) {
    add(std::make_shared<ModemLine>(modems), true);
  }
  if (ofono->callingModem()) {
    add(std::make_shared<OfonoLine>(ofono), true);
  }
  if (auto dialler = DesktopLine::known(session_)) {
    add(std::move(dialler), true);
  }
}

std::vector<std::shared_ptr<Line>> Lines::forCall(std::string_view name, bool isEmergency) const {
  std::vector<std::shared_ptr<Line>> lines;
  if (name.starts_with(DesktopLine::kPrefix)) {
    const std::string id(name.substr(DesktopLine::kPrefix.size()));
    if (auto line = DesktopLine::forEntry(id, session_)) {
      lines.push_back(std::move(line));
    }
    return lines;
  }
  for (const auto& [line, isUsedByItself] : lines_) {
    if (name == "auto" ? isUsedByItself || isEmergency : line->name() == name) {
      lines.push_back(line);
    }
  }
  if (isEmergency) {
    std::ranges::stable_sort(lines, {}, [](const auto& line) { return emergencyRank(*line); });
  } else if (lines.size() > 1) {
    lines.resize(1);
  }
  return lines;
}
