import QtQuick
import QuietDial.Settings

// A text of several lines that is edited in a sheet; it scrolls to where the cursor is.
Flickable {
    id: area

    readonly property alias input: input
    property alias text: input.text
    // Where the Tab key goes from here, and where it came from.
    property Item next: null
    property Item former: null
    signal edited(string text)

    contentHeight: input.height
    clip: true

    TextEdit {
        id: input
        width: area.width
        height: Math.max(area.height, implicitHeight)
        textFormat: TextEdit.PlainText
        font: Theme.bodyFont
        color: Theme.textColor
        wrapMode: TextEdit.Wrap
        selectByMouse: true
        selectionColor: Theme.tint
        activeFocusOnTab: true
        Accessible.role: Accessible.EditableText
        KeyNavigation.priority: KeyNavigation.BeforeItem
        KeyNavigation.tab: area.next
        KeyNavigation.backtab: area.former
        onTextChanged: area.edited(text)
        cursorDelegate: EditCursor {
            shown: input.cursorVisible
        }
        onCursorRectangleChanged: {
            const bottom = cursorRectangle.y + cursorRectangle.height;
            if (cursorRectangle.y < area.contentY)
                area.contentY = cursorRectangle.y;
            else if (bottom > area.contentY + area.height)
                area.contentY = bottom - area.height;
        }
    }
}
