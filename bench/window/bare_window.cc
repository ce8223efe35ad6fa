// What the Settings application is measured beside: the least that Qt Quick needs for a window of
// text rows that scroll. The number of rows is the one argument.

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <memory>

namespace {

constexpr const char* kWindow = R"(
import QtQuick
import QtQuick.Window
Window {
    width: 414
    height: 896
    visible: true
    color: "#efeff4"
    Flickable {
        anchors.fill: parent
        contentHeight: rows.height
        Column {
            id: rows
            Repeater {
                model: rowCount
                Rectangle {
                    width: 414
                    height: 44
                    Text {
                        x: 15
                        height: parent.height
                        verticalAlignment: Text.AlignVCenter
                        font.pixelSize: 17
                        text: "Row " + index
                    }
                }
            }
        }
    }
}
)";

}  // namespace

int main(int count, char** values) {
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  const QGuiApplication application(count, values);
  const QStringList arguments = QGuiApplication::arguments();
  QQmlEngine engine;
  engine.rootContext()->setContextProperty(QStringLiteral("rowCount"),
                                           arguments.size() > 1 ? arguments[1].toInt() : 10);
  QQmlComponent component(&engine);
  component.setData(kWindow, QUrl());
  const std::unique_ptr<QObject> window(component.create());
  return window ? QGuiApplication::exec() : EXIT_FAILURE;
}
