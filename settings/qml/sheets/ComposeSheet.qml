import QtQuick
import QuietDial.Settings

FocusScope {
    id: sheet

    required property ComposeModel model

    focus: true
    Component.onCompleted: {
        area.input.cursorPosition = area.input.length;
        area.input.forceActiveFocus();
    }

    Shortcut {
        sequences: ["Escape"]
        enabled: sheet.enabled
        onActivated: sheet.model.cancel()
    }
    SheetShade {}
    AccessibleElement {
        x: (parent.width - width) / 2
        y: Theme.barHeight + Theme.composeMargin
        width: Math.min(Theme.composeWidth, parent.width - 2 * Theme.composeMargin)
        height: Theme.barHeight + Theme.composeTextHeight
        kind: AccessibleElement.Dialog
        name: heading.name

        Rectangle {
            anchors.fill: parent
            radius: Theme.alertRadius
            color: Theme.sheetColor
        }
        SheetButton {
            id: cancel
            anchors.left: parent.left
            name: qsTr("Cancel")
            onPressed: sheet.model.cancel()
        }
        SheetHeading {
            id: heading
            anchors.left: cancel.right
            anchors.right: post.left
            name: sheet.model.service
        }
        SheetButton {
            id: post
            anchors.right: parent.right
            name: qsTr("Post")
            prominent: true
            onPressed: sheet.model.post()
        }
        Hairline {
            y: Theme.barHeight - height
            width: parent.width
            color: Theme.sheetLineColor
        }
        AccessibleElement {
            anchors.fill: parent
            anchors.topMargin: Theme.barHeight
            kind: AccessibleElement.TextArea
            name: qsTr("Text")
            editor: area.input
            SheetEditor {
                id: area
                anchors.fill: parent
                anchors.margins: Theme.composeMargin
                text: sheet.model.text
                next: cancel
                former: post
                onEdited: text => sheet.model.edit(text)
            }
        }
    }
}
