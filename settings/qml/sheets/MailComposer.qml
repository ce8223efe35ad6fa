import QtQuick
import QuietDial.Settings

// A mail's head and text, to be completed.
FocusScope {
    id: composer

    required property MailModel model
    // The sheet's buttons, before and after what can be filled in.
    required property Item cancel
    required property Item send

    function takeFocus() {
        body.input.forceActiveFocus();
    }
    // To the first attachment.
    function takeFocusBack() {
        attachments.itemAt(0)?.forceActiveFocus();
    }

    Column {
        id: fields
        width: parent.width

        MailComplaint {
            width: parent.width
            name: composer.model.complaint
        }
        MailRecipients {
            width: parent.width
            recipients: composer.model.recipients
        }
        MailSubject {
            id: subject
            width: parent.width
            text: composer.model.subject
            next: attachments.count > 0 ? attachments.itemAt(0) : body.input
            former: composer.send
            onEdited: text => composer.model.editSubject(text)
            onReturnPressed: body.input.forceActiveFocus(Qt.TabFocusReason)
        }
        Repeater {
            id: attachments
            model: composer.model.attachments
            MailAttachment {
                width: fields.width
                size: composer.model.sizes[index]
                onPressed: composer.model.reading = index
            }
        }
    }
    AccessibleElement {
        anchors.top: fields.bottom
        anchors.bottom: draft.top
        width: parent.width
        kind: AccessibleElement.TextArea
        name: qsTr("Message")
        editor: body.input
        SheetEditor {
            id: body
            anchors.fill: parent
            anchors.margins: Theme.mailMargin
            anchors.topMargin: Theme.composeMargin
            anchors.bottomMargin: 0
            input.focus: true
            text: composer.model.body
            next: draft
            former: attachments.count > 0 ? attachments.itemAt(attachments.count - 1)
                                          : subject.input
            onEdited: text => composer.model.editBody(text)
        }
    }
    SheetButton {
        id: draft
        anchors.bottom: parent.bottom
        anchors.horizontalCenter: parent.horizontalCenter
        name: qsTr("Save as Draft")
        onPressed: composer.model.saveDraft()
        KeyNavigation.tab: composer.cancel
    }
}
