import QtQuick
import QuietDial.Settings

// The subject of a mail. A long one is shown whole; it is one line of the mail all the same.
AccessibleElement {
    id: subject

    readonly property alias input: input
    property alias text: input.text
    // Where the Tab key goes from here, and where it came from.
    property Item next: null
    property Item former: null
    signal edited(string text)
    signal returnPressed

    height: input.height
    kind: AccessibleElement.TextArea
    name: qsTr("Subject")
    editor: input

    MailLabel {
        id: label
        height: Theme.hitSize
        text: qsTr("Subject:")
    }
    FontMetrics {
        id: line
        font: Theme.bodyFont
    }
    TextEdit {
        id: input
        anchors.left: label.right
        anchors.right: parent.right
        anchors.leftMargin: Theme.mailGap
        anchors.rightMargin: Theme.mailMargin
        topPadding: (Theme.hitSize - line.height) / 2
        bottomPadding: topPadding
        textFormat: TextEdit.PlainText
        font: Theme.bodyFont
        color: Theme.textColor
        selectionColor: Theme.tint
        selectByMouse: true
        wrapMode: TextEdit.Wrap
        activeFocusOnTab: true
        Accessible.role: Accessible.EditableText
        KeyNavigation.priority: KeyNavigation.BeforeItem
        KeyNavigation.tab: subject.next
        KeyNavigation.backtab: subject.former
        Keys.onReturnPressed: subject.returnPressed()
        Keys.onEnterPressed: subject.returnPressed()
        onTextChanged: {
            const joined = text.replace(/[\r\n\u2028\u2029]+/g, " ");
            if (joined === text) {
                subject.edited(text);
                return;
            }
            const position = cursorPosition;
            text = joined;
            cursorPosition = Math.min(position, length);
        }
        cursorDelegate: EditCursor {
            shown: input.cursorVisible
        }
    }
    MailLine {
        anchors.bottom: parent.bottom
    }
}
