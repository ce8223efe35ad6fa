import QtQuick
import QuietDial.Settings

// A text in a line of a mail's head.
Text {
    height: parent.height
    textFormat: Text.PlainText
    font: Theme.bodyFont
    color: Theme.textColor
    elide: Text.ElideRight
    verticalAlignment: Text.AlignVCenter
}
