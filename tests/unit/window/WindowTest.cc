#include "tests/unit/window/WindowTest.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QTimer>

#include "platform/foundation/MainQueue.h"
#include "settings/appearance/Appearance.h"

namespace {

constexpr int kPatience = 60'000;  // milliseconds

QmlRuntime*& sharedRuntime() {
  static QmlRuntime* runtime = nullptr;
  return runtime;
}

std::unique_ptr<ViewSurface> makeSurface(QQmlEngine& engine) {
  QQmlComponent component(&engine);
  component.setData("import QuietDial.Settings\nViewSurface {}",
                    QmlRuntime::source(QStringLiteral("Surface")));
  auto* surface = qobject_cast<ViewSurface*>(component.create());
  if (!surface) {
    throw std::logic_error(component.errorString().toStdString());
  }
  return std::unique_ptr<ViewSurface>(surface);
}

}  // namespace

void WindowTest::setRuntime(QmlRuntime& runtime) {
  sharedRuntime() = &runtime;
}

WindowTest::WindowTest() : qml(*sharedRuntime()), mirror(qml.engine()) {
  qml.engine().setProperty("viewMirror", QVariant::fromValue(&mirror));
  screen.resize(kWidth, kHeight);
  surface = makeSurface(qml.engine());
  surface->setParentItem(screen.contentItem());
  surface->setSize(screen.size());
  surface->setLive(true);
}

WindowTest::~WindowTest() {
  auto& appearance = Appearance::shared();
  appearance.setScheme(Appearance::Scheme::kSystem);
  appearance.setDirection(Appearance::Direction::kSystem);
  surface.reset();
  MainQueue::shared().drain();
  qml.engine().setProperty("viewMirror", QVariant());
}

void WindowTest::show(const std::shared_ptr<UIView>& view) {
  surface->setRoot(view);
  turn();
  surface->takeFocus();
  turn();
}

void WindowTest::turn() {
  do {
    MainQueue::shared().drain();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  } while (mirror.isPending() || !MainQueue::shared().isIdle());
}

std::vector<const UIView*> WindowTest::viewsIn(const QQuickItem& item) {
  std::vector<const UIView*> views;
  for (const auto* child : item.childItems()) {
    if (const auto* mirrored = qobject_cast<const ViewItem*>(child)) {
      views.push_back(mirrored->view());
    }
  }
  return views;
}

bool WindowTest::press(int key, Qt::KeyboardModifiers modifiers, const QString& text,
                       bool repeated) {
  QKeyEvent event(QEvent::KeyPress, key, modifiers, text, repeated);
  event.setTimestamp(static_cast<quint64>(clock->now() * 1000));
  QCoreApplication::sendEvent(&screen, &event);
  return event.isAccepted();
}

bool WindowTest::typeLetters(const QString& letters) {
  bool taken = false;
  for (const QChar letter : letters) {
    taken = press(letter.toUpper().unicode(), Qt::NoModifier, letter);
  }
  return taken;
}

bool runWhatComes() {
  auto& queue = MainQueue::shared();
  auto* loop = QAbstractEventDispatcher::instance();
  queue.setWakeHook([loop] { loop->wakeUp(); });
  QTimer end;
  end.setSingleShot(true);
  end.start(kPatience);
  while (queue.isIdle() && end.isActive()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
  queue.setWakeHook({});
  const bool hasCome = !queue.isIdle();
  queue.drain();
  return hasCome;
}
