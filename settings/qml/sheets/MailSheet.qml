import QtQuick
import QuietDial.Settings

// A mail to be completed: it covers the window, and in a wide one stands in its middle.
FocusScope {
    id: sheet

    required property MailModel model
    readonly property bool reading: model.reading >= 0
    readonly property bool idle: enabled && !model.sending

    focus: true
    Component.onCompleted: body.forceActiveFocus()
    onReadingChanged: {
        if (reading)
            reader.takeFocus();
        else
            attachments.itemAt(0)?.forceActiveFocus();
    }

    Shortcut {
        sequences: ["Escape"]
        enabled: sheet.idle
        onActivated: {
            if (sheet.reading)
                sheet.model.reading = -1;
            else
                sheet.model.cancel();
        }
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
        id: paper
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
            id: cancel
            anchors.left: parent.left
            name: sheet.reading ? qsTr("Done") : qsTr("Cancel")
            enabled: sheet.idle
            onPressed: {
                if (sheet.reading)
                    sheet.model.reading = -1;
                else
                    sheet.model.cancel();
            }
        }
        AccessibleElement {
            id: heading
            anchors.left: cancel.right
            anchors.right: send.left
            height: Theme.barHeight
            kind: AccessibleElement.Heading
            name: sheet.reading ? sheet.model.attachments[sheet.model.reading]
                                : sheet.model.sending ? qsTr("Sending…") : qsTr("New Message")
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
            id: send
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

        FocusScope {
            id: composing
            anchors.fill: parent
            anchors.topMargin: Theme.barHeight
            visible: !sheet.reading
            enabled: sheet.idle

            Column {
                id: fields
                width: parent.width

                AccessibleElement {
                    width: parent.width
                    height: visible ? complaintText.implicitHeight + 2 * Theme.composeMargin : 0
                    visible: sheet.model.complaint.length > 0
                    kind: AccessibleElement.Text
                    name: sheet.model.complaint
                    Text {
                        id: complaintText
                        x: Theme.mailMargin
                        y: Theme.composeMargin
                        width: parent.width - 2 * x
                        text: sheet.model.complaint
                        textFormat: Text.PlainText
                        font: Theme.noteFont
                        color: Theme.complaintColor
                        wrapMode: Text.Wrap
                    }
                    MailLine {
                        anchors.bottom: parent.bottom
                    }
                }
                AccessibleElement {
                    width: parent.width
                    height: Theme.hitSize
                    kind: AccessibleElement.Text
                    name: qsTr("To: %1").arg(sheet.model.recipients)
                    MailLabel {
                        id: to
                        text: qsTr("To:")
                    }
                    Text {
                        anchors.left: to.right
                        anchors.right: parent.right
                        anchors.leftMargin: Theme.mailGap
                        anchors.rightMargin: Theme.mailMargin
                        height: parent.height
                        text: sheet.model.recipients
                        textFormat: Text.PlainText
                        font: Theme.bodyFont
                        color: Theme.tint
                        elide: Text.ElideRight
                        verticalAlignment: Text.AlignVCenter
                    }
                    MailLine {
                        anchors.bottom: parent.bottom
                    }
                }
                AccessibleElement {
                    width: parent.width
                    height: subject.height
                    kind: AccessibleElement.TextArea
                    name: qsTr("Subject")
                    editor: subject
                    MailLabel {
                        id: subjectLabel
                        height: Theme.hitSize
                        text: qsTr("Subject:")
                    }
                    FontMetrics {
                        id: subjectLine
                        font: Theme.bodyFont
                    }
                    TextEdit {
                        id: subject
                        anchors.left: subjectLabel.right
                        anchors.right: parent.right
                        anchors.leftMargin: Theme.mailGap
                        anchors.rightMargin: Theme.mailMargin
                        topPadding: (Theme.hitSize - subjectLine.height) / 2
                        bottomPadding: topPadding
                        text: sheet.model.subject
                        textFormat: TextEdit.PlainText
                        font: Theme.bodyFont
                        color: Theme.textColor
                        selectionColor: Theme.tint
                        selectByMouse: true
                        // A long subject is shown whole; it is one line of the mail all the same.
                        wrapMode: TextEdit.Wrap
                        activeFocusOnTab: true
                        Accessible.role: Accessible.EditableText
                        KeyNavigation.priority: KeyNavigation.BeforeItem
                        KeyNavigation.tab: attachments.count > 0 ? attachments.itemAt(0) : body
                        KeyNavigation.backtab: send
                        Keys.onReturnPressed: body.forceActiveFocus(Qt.TabFocusReason)
                        Keys.onEnterPressed: body.forceActiveFocus(Qt.TabFocusReason)
                        onTextChanged: {
                            const line = text.replace(/[\r\n\u2028\u2029]+/g, " ");
                            if (line === text) {
                                sheet.model.editSubject(text);
                                return;
                            }
                            const position = cursorPosition;
                            text = line;
                            cursorPosition = Math.min(position, length);
                        }
                        cursorDelegate: MailCursor {
                            shown: subject.cursorVisible
                        }
                    }
                    MailLine {
                        anchors.bottom: parent.bottom
                    }
                }
                Repeater {
                    id: attachments
                    model: sheet.model.attachments
                    AccessibleElement {
                        id: attachment
                        required property int index
                        required property string modelData
                        width: fields.width
                        height: Theme.hitSize
                        kind: AccessibleElement.Button
                        name: qsTr("Attachment %1, %2").arg(modelData)
                                                      .arg(sheet.model.sizes[index])
                        activeFocusOnTab: true
                        Accessible.role: Accessible.Button
                        onPressed: sheet.model.reading = index
                        Rectangle {
                            anchors.fill: parent
                            color: Theme.pressedShade
                            visible: tap.pressed
                        }
                        MailLabel {
                            id: attachedLabel
                            text: qsTr("Attached:")
                        }
                        Text {
                            anchors.left: attachedLabel.right
                            anchors.right: sizeText.left
                            anchors.leftMargin: Theme.mailGap
                            anchors.rightMargin: Theme.mailGap
                            height: parent.height
                            text: attachment.modelData
                            textFormat: Text.PlainText
                            font: Theme.bodyFont
                            color: Theme.textColor
                            elide: Text.ElideMiddle
                            verticalAlignment: Text.AlignVCenter
                        }
                        Text {
                            id: sizeText
                            anchors.right: chevron.left
                            anchors.rightMargin: Theme.mailSizeGap
                            height: parent.height
                            text: sheet.model.sizes[attachment.index]
                            textFormat: Text.PlainText
                            font: Theme.noteFont
                            color: Theme.noteColor
                            verticalAlignment: Text.AlignVCenter
                        }
                        SymbolItem {
                            id: chevron
                            anchors.right: parent.right
                            anchors.rightMargin: Theme.indicatorMargin
                            anchors.verticalCenter: parent.verticalCenter
                            width: Theme.chevronWidth
                            height: Theme.chevronHeight
                            stroke: Theme.chevronStroke
                            symbol: SymbolItem.Forward
                            color: Theme.chevronColor
                        }
                        MailLine {
                            anchors.bottom: parent.bottom
                        }
                        TapHandler {
                            id: tap
                            onTapped: attachment.tap()
                        }
                        FocusFrame {
                            target: attachment
                        }
                    }
                }
            }
            AccessibleElement {
                anchors.top: fields.bottom
                anchors.bottom: draft.top
                width: parent.width
                kind: AccessibleElement.TextArea
                name: qsTr("Message")
                editor: body
                Flickable {
                    id: flickable
                    anchors.fill: parent
                    anchors.margins: Theme.mailMargin
                    anchors.topMargin: Theme.composeMargin
                    anchors.bottomMargin: 0
                    contentHeight: body.height
                    clip: true
                    TextEdit {
                        id: body
                        focus: true
                        width: flickable.width
                        height: Math.max(flickable.height, implicitHeight)
                        text: sheet.model.body
                        textFormat: TextEdit.PlainText
                        font: Theme.bodyFont
                        color: Theme.textColor
                        wrapMode: TextEdit.Wrap
                        selectByMouse: true
                        selectionColor: Theme.tint
                        activeFocusOnTab: true
                        Accessible.role: Accessible.EditableText
                        KeyNavigation.priority: KeyNavigation.BeforeItem
                        KeyNavigation.tab: draft
                        KeyNavigation.backtab: attachments.count > 0
                                               ? attachments.itemAt(attachments.count - 1) : subject
                        onTextChanged: sheet.model.editBody(text)
                        cursorDelegate: MailCursor {
                            shown: body.cursorVisible
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
            SheetButton {
                id: draft
                anchors.bottom: parent.bottom
                anchors.horizontalCenter: parent.horizontalCenter
                name: qsTr("Save as Draft")
                onPressed: sheet.model.saveDraft()
                KeyNavigation.tab: cancel
            }
        }

        AccessibleElement {
            id: reader
            anchors.fill: parent
            anchors.topMargin: Theme.barHeight
            visible: sheet.reading
            kind: AccessibleElement.Text
            name: sheet.model.attachmentText
            activeFocusOnTab: true
            function takeFocus() {
                page.contentY = 0;
                forceActiveFocus(Qt.TabFocusReason);
            }
            function scrollBy(way) {
                const last = Math.max(0, page.contentHeight - page.height);
                page.contentY = Math.max(0, Math.min(last, page.contentY + way));
            }
            Keys.onUpPressed: scrollBy(-Theme.hitSize)
            Keys.onDownPressed: scrollBy(Theme.hitSize)
            Keys.onPressed: event => {
                if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
                    return;
                scrollBy(event.key === Qt.Key_PageUp ? -page.height : page.height);
                event.accepted = true;
            }
            Flickable {
                id: page
                anchors.fill: parent
                anchors.leftMargin: Theme.mailMargin
                anchors.rightMargin: Theme.mailMargin
                contentHeight: content.implicitHeight + 2 * Theme.composeMargin
                clip: true
                Text {
                    id: content
                    y: Theme.composeMargin
                    width: page.width
                    text: sheet.model.attachmentText
                    textFormat: Text.PlainText
                    font: Theme.noteFont
                    color: Theme.textColor
                    wrapMode: Text.Wrap
                }
            }
            ScrollBar {
                flickable: page
            }
        }
    }
}
