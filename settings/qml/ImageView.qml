import QtQuick
import QuietDial.Settings

ImageItem {
    id: view

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
        contents: view.contents
    }
    TapRecognizer {
        view: view
    }
}
