import QtQuick
import QuietDial.Settings

HeaderFooterItem {
    id: view

    Rectangle {
        anchors.fill: parent
        visible: color.a > 0
        color: view.color
    }
}
