#pragma once

#include <QQuickWindow>
#include <QString>
#include <memory>
#include <stdexcept>
#include <vector>

#include "settings/mirror/ViewItem.h"
#include "settings/mirror/ViewMirror.h"
#include "settings/mirror/ViewSurface.h"
#include "settings/qml/QmlRuntime.h"
#include "tests/support/PaneTest.h"

/// A test over what the window shows: views become items of a window of 320 x 480 points that is
/// drawn off screen. The toolkit and its QML types are there for as long as the program, which
/// main() sees to; what a test changes of how things look is put back at its end.
class WindowTest : public PaneTest {
 public:
  /// What all tests share. It outlives them.
  static void setRuntime(QmlRuntime& runtime);

 protected:
  WindowTest();
  ~WindowTest() override;

  /// Shows the view, and nothing else, over the whole window; its list has the keyboard.
  void show(const std::shared_ptr<UIView>& view);
  /// Runs what is due by the hand-moved clock, and what the toolkit has to do, until nothing is
  /// left.
  void turn();

  /// The view's item.
  template <class Item = ViewItem>
  Item& itemOf(UIView& view) {
    auto* item = qobject_cast<Item*>(&mirror.itemFor(view));
    if (!item) {
      throw std::logic_error("the view has an item of another kind");
    }
    return *item;
  }
  /// The views whose items stand in that item, from the lowest.
  static std::vector<const UIView*> viewsIn(const QQuickItem& item);

  /// Presses a key, at the time of the clock. Whether anything took it.
  bool press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {},
             bool repeated = false);
  /// Types letter by letter. Whether anything took the last one.
  bool typeLetters(const QString& letters);

  static constexpr int kWidth = 320;
  static constexpr int kHeight = 480;

  QmlRuntime& qml;
  ViewMirror mirror;
  QQuickWindow screen;
  std::unique_ptr<ViewSurface> surface;
};

/// Waits until another thread has brought something to the main queue, and runs it. False where
/// nothing has come after a time that no machine takes.
bool runWhatComes();
