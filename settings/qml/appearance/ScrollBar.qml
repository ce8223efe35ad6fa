import QtQuick
import QuietDial.Settings

// Shows where one is in the list while it moves.
Rectangle {
    required property Flickable flickable

    readonly property real part: flickable.visibleArea.heightRatio
    readonly property real room: flickable.height - 2 * Theme.scrollBarMargin
    anchors.right: parent.right
    anchors.rightMargin: Theme.scrollBarMargin
    y: Theme.scrollBarMargin + flickable.visibleArea.yPosition * room
    width: Theme.scrollBarWidth
    height: Math.max(Theme.scrollBarShortest, part * room)
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
