import QtQuick
import QuietDial.Settings

// What a sheet is called, in the middle of its bar.
AccessibleElement {
    id: heading

    height: Theme.barHeight
    kind: AccessibleElement.Heading

    Text {
        anchors.fill: parent
        text: heading.name
        textFormat: Text.PlainText
        font: Theme.titleFont
        color: Theme.textColor
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
}
