#pragma once

#include <QString>
#include <memory>

#include "settings/qml/QmlRuntime.h"
#include "settings/start/StartOptions.h"

class DesktopPreferences;
class QGuiApplication;

/// The toolkit, started for a program with a window: fonts, QML types, accessibility, and how
/// things look and move. One for the process, made before anything else of the toolkit; main
/// thread.
class WindowApplication {
 public:
  struct Names {
    const char* program;         ///< As on the command line.
    const char* title;           ///< For people.
    const char* withoutDisplay;  ///< A sentence on what can be done where there is no display.
  };

  /// Ends the program, with a sentence, where no window can be opened. `first` are the files of the
  /// QML types that the window begins with.
  WindowApplication(const StartOptions& options, const Names& names, char** values,
                    const QList<QUrl>& first = QmlRuntime::firstPage());
  ~WindowApplication();
  Q_DISABLE_COPY_MOVE(WindowApplication)

  QmlRuntime& qml() { return *qml_; }

 private:
  void start(char** values, const QList<QUrl>& first);
  void takeLook(const StartOptions& options);

  int count_ = 1;  // the arguments are the program's own
  std::unique_ptr<QGuiApplication> application_;
  std::unique_ptr<QmlRuntime> qml_;
  std::unique_ptr<DesktopPreferences> desktop_;
};
