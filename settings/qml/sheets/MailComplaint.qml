import QtQuick
import QuietDial.Settings

// What went wrong with a mail; takes no room while all is well.
AccessibleElement {
    id: complaint

    height: visible ? text.implicitHeight + 2 * Theme.composeMargin : 0
    visible: name.length > 0
    kind: AccessibleElement.Text

    Text {
        id: text
        x: Theme.mailMargin
        y: Theme.composeMargin
        width: parent.width - 2 * x
        text: complaint.name
        textFormat: Text.PlainText
        font: Theme.noteFont
        color: Theme.complaintColor
        wrapMode: Text.Wrap
    }
    MailLine {
        anchors.bottom: parent.bottom
    }
}
