#include "tests/window/touchscreen/TouchScreen.h"

#include <QFile>
#include <QGuiApplication>
#include <QList>
#include <QWindow>
#include <array>
#include <fcntl.h>
#include <unistd.h>

#include <QtTest/qtesttouch.h>

namespace {

constexpr int kFinger = 0;

// Open for writing as well: the pipe does not end when a writer goes.
int openPipe(const QString& path) {
  const int descriptor =
      ::open(QFile::encodeName(path).constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  if (descriptor < 0) {
    qFatal("no pipe at %s", qPrintable(path));
  }
  return descriptor;
}

}  // namespace

TouchScreen::TouchScreen(const QString& pipe)
    : device_(QTest::createTouchDevice()), notifier_(openPipe(pipe), QSocketNotifier::Read) {
  connect(&notifier_, &QSocketNotifier::activated, this, &TouchScreen::read);
}

void TouchScreen::read() {
  std::array<char, 4096> bytes{};
  const auto count = ::read(static_cast<int>(notifier_.socket()), bytes.data(), bytes.size());
  if (count <= 0) {
    return;
  }
  rest_.append(bytes.data(), count);
  auto lines = rest_.split('\n');
  rest_ = lines.takeLast();
  for (const auto& line : lines) {
    obey(line);
  }
}

void TouchScreen::obey(const QByteArray& line) {
  const auto words = line.split(' ');
  const QPoint place = words.size() == 3 ? QPoint(words[1].toInt(), words[2].toInt()) : QPoint();
  auto* const window = QGuiApplication::topLevelAt(place);
  if (words.size() != 3 || !window) {
    qFatal("no touch: %s", line.constData());
  }
  const QPoint local = window->mapFromGlobal(place);
  auto finger = QTest::touchEvent(window, device_, false);
  if (words[0] == "press") {
    finger.press(kFinger, local);
  } else if (words[0] == "move") {
    finger.move(kFinger, local);
  } else if (words[0] == "release") {
    finger.release(kFinger, local);
  } else {
    qFatal("no touch: %s", line.constData());
  }
  finger.commit(false);
}
