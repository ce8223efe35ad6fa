import QtQuick
import QuietDial.Settings

// What stands in a page's place, or where one is cut off: one sentence, and a button that opens the
// page elsewhere.
Item {
    id: note

    property alias text: sentence.text
    signal opened

    implicitHeight: column.implicitHeight + 2 * Theme.webNoteMargin

    Column {
        id: column
        anchors.centerIn: parent
        width: parent.width - 2 * Theme.webNoteMargin

        AccessibleElement {
            width: parent.width
            implicitHeight: sentence.implicitHeight
            kind: AccessibleElement.Text
            name: sentence.text
            Accessible.role: Accessible.StaticText

            Text {
                id: sentence
                width: parent.width
                textFormat: Text.PlainText
                font: Theme.bodyFont
                color: Theme.textColor
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
        SheetButton {
            anchors.horizontalCenter: parent.horizontalCenter
            name: qsTr("Open in Browser")
            onPressed: note.opened()
        }
    }
}
