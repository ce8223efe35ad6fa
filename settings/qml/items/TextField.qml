import QtQuick
import QuietDial.Settings

TextFieldItem {
    id: field

    editor: input
    Accessible.role: Accessible.EditableText
    onEditingChanged: {
        if (editing) {
            input.forceActiveFocus();
            return;
        }
        // Told to end while it is typed into, it gives the focus to the list.
        const typed = input.activeFocus;
        input.focus = false;
        if (typed)
            field.focus = false;
    }
    readonly property string shownText: text
    onShownTextChanged: if (input.text !== shownText)
        input.text = shownText

    Text {
        anchors.fill: parent
        visible: input.text.length === 0 && input.preeditText.length === 0
        text: field.placeholder
        textFormat: Text.PlainText
        font: field.font
        color: Theme.placeholderColor
        horizontalAlignment: Text.AlignLeft
        // A large text is made to fit rather than cut.
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: Theme.smallestText
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }
    TextInput {
        id: input
        anchors.fill: parent
        focus: false
        activeFocusOnTab: field.enabled
        font: field.font
        color: field.textColor
        selectionColor: Theme.tint
        selectByMouse: true
        clip: true
        horizontalAlignment: TextInput.AlignLeft
        verticalAlignment: TextInput.AlignVCenter
        inputMethodHints: field.inputMethodHints
        onActiveFocusChanged: {
            if (activeFocus)
                field.beginEditing();
            else
                field.endEditing();
        }
        onTextEdited: field.edit(text)
        onAccepted: {
            // The focus stays in the row, for the keys to go on from there.
            focus = false;
            field.pressReturn();
        }
        onCursorPositionChanged: field.cursorMoved()
        cursorDelegate: EditCursor {
            shown: input.cursorVisible
        }
    }
}
