import QtQuick
import QuietDial.Settings

FocusScope {
    id: sheet

    required property ComposeModel model

    focus: true
    Component.onCompleted: {
        input.cursorPosition = input.length;
        input.forceActiveFocus();
    }

    Shortcut {
        sequences: ["Escape"]
        enabled: sheet.enabled
        onActivated: sheet.model.cancel()
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.dimColor
    }
    MouseArea {
        anchors.fill: parent
        onWheel: wheel => wheel.accepted = true
    }
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
        AccessibleElement {
            id: heading
            anchors.left: cancel.right
            anchors.right: post.left
            height: Theme.barHeight
            kind: AccessibleElement.Heading
            name: sheet.model.service
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
            id: area
            anchors.fill: parent
            anchors.topMargin: Theme.barHeight
            kind: AccessibleElement.TextArea
            name: qsTr("Text")
            editor: input
            Flickable {
                id: flickable
                anchors.fill: parent
                anchors.margins: Theme.composeMargin
                contentHeight: input.height
                clip: true
                TextEdit {
                    id: input
                    width: flickable.width
                    height: Math.max(flickable.height, implicitHeight)
                    text: sheet.model.text
                    textFormat: TextEdit.PlainText
                    font: Theme.bodyFont
                    color: Theme.textColor
                    wrapMode: TextEdit.Wrap
                    selectByMouse: true
                    selectionColor: Theme.tint
                    activeFocusOnTab: true
                    Accessible.role: Accessible.EditableText
                    KeyNavigation.priority: KeyNavigation.BeforeItem
                    KeyNavigation.tab: cancel
                    KeyNavigation.backtab: post
                    onTextChanged: sheet.model.edit(text)
                    cursorDelegate: Rectangle {
                        width: Theme.cursorWidth
                        color: Theme.tint
                        visible: input.cursorVisible
                    }
                    onCursorRectangleChanged: {
                        const bottom = cursorRectangle.y + cursorRectangle.height;
                        if (cursorRectangle.y < flickable.contentY)
                            flickable.contentY = cursorRectangle.y;
                        else if (bottom > flickable.contentY + flickable.height)
                            flickable.contentY = bottom - flickable.height;
                    }
                }
            }
        }
    }
}
