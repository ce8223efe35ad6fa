import QtQuick
import QuietDial.Settings

ViewItem {
    id: view

    Rectangle {
        anchors.fill: parent
        visible: color.a > 0
        color: view.color
        radius: view.radius
    }
}
