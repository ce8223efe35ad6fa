import QtQuick
import QuietDial.Settings

// A mail to be completed: it covers the window, and in a wide one stands in its middle.
FocusScope {
    id: sheet

    required property MailModel model
    readonly property bool reading: model.reading >= 0
    readonly property bool idle: enabled && !model.sending

    focus: true
    Component.onCompleted: composer.takeFocus()
    onReadingChanged: {
        if (reading)
            reader.takeFocus();
        else
            composer.takeFocusBack();
    }

    // From the attachment to the mail, from the mail to the page.
    function leave() {
        if (reading)
            model.reading = -1;
        else
            model.cancel();
    }

    Shortcut {
        sequences: ["Escape"]
        enabled: sheet.idle
        onActivated: sheet.leave()
    }
    SheetShade {}
    AccessibleElement {
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(Theme.mailWidth, parent.width)
        height: parent.height
        kind: AccessibleElement.Dialog
        name: heading.name

        Rectangle {
            anchors.fill: parent
            color: Theme.paperColor
        }
        Rectangle {
            width: parent.width
            height: Theme.barHeight
            color: Theme.sheetColor
        }
        SheetButton {
            id: cancelButton
            anchors.left: parent.left
            name: sheet.reading ? qsTr("Done") : qsTr("Cancel")
            enabled: sheet.idle
            onPressed: sheet.leave()
        }
        SheetHeading {
            id: heading
            anchors.left: cancelButton.right
            anchors.right: sendButton.left
            name: sheet.reading ? sheet.model.attachments[sheet.model.reading]
                                : sheet.model.sending ? qsTr("Sending…") : qsTr("New Message")
        }
        SheetButton {
            id: sendButton
            anchors.right: parent.right
            name: qsTr("Send")
            prominent: true
            visible: !sheet.reading
            enabled: sheet.idle
            onPressed: sheet.model.send()
        }
        Hairline {
            y: Theme.barHeight - height
            width: parent.width
            color: Theme.sheetLineColor
        }

        MailComposer {
            id: composer
            anchors.fill: parent
            anchors.topMargin: Theme.barHeight
            visible: !sheet.reading
            enabled: sheet.idle
            model: sheet.model
            cancel: cancelButton
            send: sendButton
        }
        MailReader {
            id: reader
            anchors.fill: parent
            anchors.topMargin: Theme.barHeight
            visible: sheet.reading
            name: sheet.model.attachmentText
        }
    }
}
