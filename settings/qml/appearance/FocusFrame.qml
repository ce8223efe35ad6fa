import QtQuick
import QuietDial.Settings

// Marks what the keyboard is on.
Rectangle {
    required property AccessibleItem target

    anchors.fill: parent
    visible: target.focusVisible
    color: "transparent"
    border.color: Theme.focusColor
    border.width: Theme.focusWidth
    z: 1
}
