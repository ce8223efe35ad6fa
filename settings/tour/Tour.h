#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "platform/uikit/UIApplication.h"
#include "settings/appearance/Appearance.h"

class SettingsWindow;
class PSSpecifier;
class RecordingMail;
class Sheets;
class UIViewController;

/// Pictures of every page that rows lead to and of the sheets that stand above them, each in light
/// and dark, at three widths and two text sizes, and an index over them.
class Tour {
 public:
  /// Gives a window on the first page, made anew; the one before is gone by then.
  using WindowMaker = std::function<std::unique_ptr<SettingsWindow>()>;

  /// Pages are at least `height` points high. `sheets` are those of the windows, `mail` is the
  /// installed mail service.
  Tour(WindowMaker makeWindow, Sheets& sheets, RecordingMail& mail, int height, QString folder);

  /// False when something could not be written or drawn; error() then says what.
  bool run();

  const QString& error() const { return error_; }

 private:
  struct Look {
    int width;
    Appearance::Scheme scheme;
    UIContentSizeCategory textSize;
    QString name() const;
  };
  struct Subject {
    QString name;   // of its files
    QString title;  // for people
    QStringList files;
  };

  bool visit(int depth);
  bool visitRow(int index, int depth);
  bool visitSheets(PSSpecifier& row);
  bool visitStandIns();
  bool takePictures(const QString& name, const QString& title);
  bool takePicture(const Look& look, Subject& subject);
  bool takePicturesOfPage();
  bool takePicturesOfSheet(const QString& name);
  Subject& subjectNamed(const QString& name, const QString& title);
  bool writeIndex();

  WindowMaker makeWindow_;
  Sheets& sheets_;
  RecordingMail& mail_;
  int height_;
  QString folder_;
  QString error_;
  std::unique_ptr<SettingsWindow> window_;
  UIContentSizeCategory textSize_ = UIContentSizeCategory::kLarge;
  QStringList visited_;
  QList<Subject> subjects_;
  int next_ = 0;  // number of the next subject at this text size
};
