#pragma once

#include <memory>
#include <set>
#include <string>

#include "calling/Line.h"
#include "linux/lines/Bus.h"
#include "linux/lines/ModemManager.h"

/// GNOME Calls, by the `tel:` address that its application takes. It dials at once; without a modem
/// it would keep the number and dial it whenever one appears, so that it is given none then. It
/// takes a prefix.
class GnomeCallsLine final : public Line {
 public:
  /// Whether it is running or installed.
  static bool isThere(Bus& session);
  /// Whether the desktop opens `tel:` addresses with it, or did before this system's dialler came.
  static bool handlesLinks();

  GnomeCallsLine(std::shared_ptr<Bus> session, std::shared_ptr<ModemManager> modems);

  std::string name() const override { return "calls"; }
  std::string title() const override { return "GNOME Calls"; }
  LineFacts facts() override;
  Placement place(const CallPlan& plan) override;

 private:
  bool start();
  bool canDial();
  /// The objects of its calls: all of them, or those with the number.
  std::set<std::string> calls(const std::string* number);
  bool waitForCall(const std::string& number, const std::set<std::string>& before);

  std::shared_ptr<Bus> session_;
  std::shared_ptr<ModemManager> modems_;
};
