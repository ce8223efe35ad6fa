import QtQuick
import QuietDial.Settings

Rectangle {
    required property bool shown

    width: Theme.cursorWidth
    color: Theme.tint
    visible: shown
}
