#pragma once

#include <memory>
#include <string>

#include "headless/ManualClock.h"
#include "headless/ManualDisplayRefresh.h"
#include "headless/Recorder.h"
#include "headless/RecordingSheets.h"
#include "linux/DBusNotifications.h"
#include "linux/DevicePaths.h"
#include "linux/HTTPClient.h"
#include "platform/services.h"
#include "tools/drive/DriveOptions.h"

/// The services of the panes under a script: what is asked of them is recorded, and what a script
/// moves or looks at is kept here.
class DriveServices {
 public:
  /// Files lie below `root`.
  DriveServices(const DriveOptions& options, const std::string& root);

  /// All of them, to be installed.
  Services make() const;

  std::shared_ptr<const DevicePaths> paths;
  std::shared_ptr<Recorder> recorder = std::make_shared<Recorder>();
  std::shared_ptr<ManualClock> clock = std::make_shared<ManualClock>();
  std::shared_ptr<RecordingSheets> sheets = std::make_shared<RecordingSheets>(recorder);
  std::shared_ptr<ManualDisplayRefresh> displayRefresh = std::make_shared<ManualDisplayRefresh>();
  std::shared_ptr<HTTPClient> web;
  /// Null where nothing leaves the process.
  std::shared_ptr<DBusNotifications> bus;

 private:
  // What really happens besides being recorded; all null where nothing does.
  struct Effects {
    std::shared_ptr<ProcessService> processes;
    std::shared_ptr<AddressOpener> addresses;
    std::shared_ptr<MailService> mail;
  };

  std::shared_ptr<FileService> makeFiles() const;

  const DriveOptions& options_;
  Effects effects_;
};
