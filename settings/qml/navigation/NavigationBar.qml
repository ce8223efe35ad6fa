import QtQuick
import QuietDial.Settings

Rectangle {
    id: bar

    required property Navigation navigation
    required property real depth

    color: Theme.barColor

    Hairline {
        anchors.bottom: parent.bottom
        width: parent.width
        color: Theme.barLineColor
    }
    Repeater {
        model: bar.navigation
        BarItems {
            navigation: bar.navigation
            depth: bar.depth
            width: bar.width
            height: bar.height
        }
    }
}
