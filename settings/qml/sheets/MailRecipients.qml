import QtQuick
import QuietDial.Settings

// Whom a mail goes to.
AccessibleElement {
    required property string recipients

    height: Theme.hitSize
    kind: AccessibleElement.Text
    name: qsTr("To: %1").arg(recipients)

    MailLabel {
        id: label
        text: qsTr("To:")
    }
    MailText {
        anchors.left: label.right
        anchors.right: parent.right
        anchors.leftMargin: Theme.mailGap
        anchors.rightMargin: Theme.mailMargin
        text: parent.recipients
        color: Theme.tint
    }
    MailLine {
        anchors.bottom: parent.bottom
    }
}
