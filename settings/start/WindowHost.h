#pragma once

#include <memory>

#include "linux/DevicePaths.h"
#include "linux/HTTPClient.h"
#include "linux/NetworkWork.h"
#include "linux/UnsavedSettings.h"
#include "linux/WatchedFiles.h"
#include "platform/services.h"
#include "settings/services/WebPages.h"
#include "settings/services/WindowRefresh.h"
#include "settings/sheets/Sheets.h"
#include "settings/start/StartOptions.h"
#include "settings/window/SettingsWindow.h"
#include "settings/window/UnsavedNotice.h"

/// What lies behind a program's windows: its files, the network, and the services of this machine
/// that every window has. Outlives the windows; main thread.
class WindowHost {
 public:
  WindowHost(const StartOptions& options, std::shared_ptr<const DevicePaths> paths);
  ~WindowHost() = default;
  Q_DISABLE_COPY_MOVE(WindowHost)

  /// All but what reaches other programs and people, which each program chooses by itself:
  /// notifications, processes, addresses and mail; and the log, which is under the program's name.
  Services services() const;

  FileService& files() const { return *files_; }
  Sheets& sheets() const { return *sheets_; }

  /// One at a time, after the services were installed.
  std::unique_ptr<SettingsWindow> openWindow(QmlRuntime& qml);
  /// Nothing is fetched before that window shows its first frame, but for long.
  void holdFetches(SettingsWindow& window);

  /// Tells on standard error what could not be saved: perhaps the window was gone before anybody
  /// could read it there.
  void tellUnsaved() const;

 private:
  QSize size_;
  bool animated_;
  std::shared_ptr<const DevicePaths> paths_;
  std::shared_ptr<UnsavedSettings> unsaved_;
  UnsavedNotice notice_;
  std::shared_ptr<WatchedFiles> files_;
  std::shared_ptr<Sheets> sheets_;
  std::shared_ptr<HTTPClient> web_;
  NetworkWork network_;
  std::shared_ptr<WebPages> webPages_;
  std::shared_ptr<WindowRefresh> refresh_;
};
