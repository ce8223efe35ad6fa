#pragma once

#include <QSet>
#include <QString>
#include <string>

#include "platform/preferences/PSListController.h"

/// Which pages are being opened, kept in files so that a start after a crash knows which page took
/// the program down. A file stands for each page from before its code first runs until the page has
/// been shown. Where the folder cannot be written nothing is kept. While it lives it hears of each
/// pane that is made; there is one at a time. Main thread.
class OpeningRecord : public PaneObserver {
 public:
  /// The folder need not exist.
  explicit OpeningRecord(QString folder);
  ~OpeningRecord() override;
  Q_DISABLE_COPY_MOVE(OpeningRecord)

  /// Whether the page's last opening, in an earlier run, never came to its end.
  bool tookProgramDown(const std::string& className) const;

  void paneWillBeMade(const std::string& className) override { begin(className); }
  /// For a page whose bundle runs before the page is made.
  void begin(const std::string& className);
  bool isOpening() const { return !opening_.isEmpty(); }
  /// Everything begun has been shown.
  void succeed();

 private:
  QString fileFor(const std::string& className) const;

  QString folder_;
  QSet<QString> opening_;  // files of this run
};
