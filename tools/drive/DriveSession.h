#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "headless/ManualClock.h"
#include "headless/ManualDisplayRefresh.h"
#include "headless/RecordingSheets.h"
#include "linux/BundleModule.h"
#include "platform/preferences/PSListController.h"
#include "platform/uikit/NavigationStacks.h"
#include "tools/drive/json.h"

/// The panes under a script: a navigation controller inside another one, as in the Settings
/// application, and one answer to each request. Main thread; the services are installed before.
class DriveSession {
 public:
  struct Options {
    /// Width of the table's content, in points.
    CGFloat width = 320;
    /// The `badgeString` of the row that opens a pane; nothing for no such property.
    std::optional<std::string> entryBadge;
    /// Takes in and sends out what other processes post; empty where nothing leaves this one.
    std::function<void()> exchangeNotifications;
  };

  /// `module` outlives the session.
  DriveSession(Options options, const BundleModule& module, std::shared_ptr<ManualClock> clock,
               std::shared_ptr<Recorder> recorder, std::shared_ptr<RecordingSheets> sheets,
               std::shared_ptr<ManualDisplayRefresh> displayRefresh);

  /// The answer to one line. Never throws; a request that cannot be carried out has changed
  /// nothing.
  Json answer(const std::string& line);

  /// True once a request has ended the session.
  bool hasEnded() const { return ended_; }

 private:
  Json carryOut(const Json& request);
  Json push(const Json& request);
  Json tap(const Json& request);
  Json pop(const Json& request);
  Json rows(const Json& request);
  Json views(const Json& request);
  Json segment(const Json& request);
  Json press(const Json& request);
  Json type(const Json& request);
  Json bar(const Json& request);
  Json sheet(const Json& request);
  Json resize(const Json& request);
  Json refresh(const Json& request);
  Json advance(const Json& request);
  Json memoryWarning(const Json& request);
  Json settings(const Json& request);
  Json events(const Json& request);
  Json globals(const Json& request);
  Json quit(const Json& request);

  void finishMail(MFMailComposeViewController& mail, const std::string& result);
  void settle();
  void layOut();
  Json whereWeAre() const;
  std::shared_ptr<PSListController> topPane() const;
  PSListController& requireTopPane() const;
  std::shared_ptr<PSSpecifier> requireRow(PSListController& pane, const Json& request) const;
  std::shared_ptr<UITableViewCell> requireCell(PSListController& pane, const Json& request) const;

  Options options_;
  const BundleModule& module_;
  std::shared_ptr<ManualClock> clock_;
  std::shared_ptr<Recorder> recorder_;
  std::shared_ptr<RecordingSheets> sheets_;
  std::shared_ptr<ManualDisplayRefresh> displayRefresh_;
  NavigationStacks stacks_ = NavigationStacks::make();
  bool ended_ = false;
};
