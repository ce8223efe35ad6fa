import QtQuick
import QuietDial.Settings

// Where the next letter goes in a text that is edited.
Rectangle {
    required property bool shown

    width: Theme.cursorWidth
    color: Theme.tint
    visible: shown
}
