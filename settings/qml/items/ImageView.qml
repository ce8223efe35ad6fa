import QtQuick
import QuietDial.Settings

ImageItem {
    id: view

    Accessible.role: Accessible.Graphic

    Rectangle {
        anchors.fill: parent
        visible: color.a > 0
        color: view.color
        radius: view.radius
    }
    Picture {
        anchors.fill: parent
        source: view.source
    }
    LayerContents {
        anchors.fill: parent
        view: view
    }
}
