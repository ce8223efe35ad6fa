import QtQuick
import QuietDial.Settings

Rectangle {
    required property bool shown

    width: 2
    color: Theme.tint
    visible: shown
}
