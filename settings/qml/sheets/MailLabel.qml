import QtQuick
import QuietDial.Settings

// Says what a line of a mail's head holds.
Text {
    x: Theme.mailMargin
    height: parent.height
    textFormat: Text.PlainText
    font: Theme.bodyFont
    color: Theme.noteColor
    verticalAlignment: Text.AlignVCenter
}
