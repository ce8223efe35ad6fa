import QtQuick
import QuietDial.Settings

// Shows where one is in the list while it moves.
Rectangle {
    required property Flickable flickable

    readonly property real part: flickable.visibleArea.heightRatio
    anchors.right: parent.right
    anchors.rightMargin: 3
    y: 3 + flickable.visibleArea.yPosition * (flickable.height - 6)
    width: 2.5
    height: Math.max(24, part * (flickable.height - 6))
    radius: width / 2
    color: Theme.scrollBarColor
    opacity: flickable.moving && part < 1 ? 1 : 0
    visible: opacity > 0
    Behavior on opacity {
        NumberAnimation {
            duration: Theme.releaseTime
        }
    }
}
