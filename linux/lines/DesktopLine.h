#pragma once

#include <memory>
#include <optional>
#include <string>

#include "calling/Line.h"
#include "linux/lines/Bus.h"
#include "linux/lines/DesktopEntry.h"

/// A dialler that the desktop knows by its entry and that fills a number in for its user to call.
/// It takes a prefix.
class DesktopLine final : public Line {
 public:
  static constexpr std::string_view kPrefix = "desktop:";

  /// The dialler of that entry; null where there is none, where it does not open telephone links,
  /// or where it is a web browser or this program itself: these would hand the number on.
  static std::shared_ptr<DesktopLine> forEntry(const std::string& id, std::shared_ptr<Bus> session);

  /// One whose ways are known; null where none is installed. The desktop's choice comes first.
  static std::shared_ptr<DesktopLine> known(const std::shared_ptr<Bus>& session);

  DesktopLine(DesktopEntry entry, std::shared_ptr<Bus> session);

  std::string name() const override { return std::string(kPrefix) + entry_.id; }
  std::string title() const override { return entry_.name; }
  LineFacts facts() override { return {.name = name()}; }
  Placement place(const CallPlan& plan) override;

 private:
  bool launch(const std::string& address) const;
  bool activate(const std::string& address);

  DesktopEntry entry_;
  std::shared_ptr<Bus> session_;
};
