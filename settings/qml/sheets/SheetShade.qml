import QtQuick
import QuietDial.Settings

// Dims what a sheet stands above, and keeps everything from it.
Rectangle {
    anchors.fill: parent
    color: Theme.dimColor

    MouseArea {
        anchors.fill: parent
        onWheel: wheel => wheel.accepted = true
    }
}
