import QtQuick
import QuietDial.Settings

FocusScope {
    id: sheet

    required property AlertModel model
    signal closed

    focus: true
    Component.onCompleted: button.forceActiveFocus()

    Shortcut {
        sequences: ["Escape"]
        onActivated: sheet.closed()
    }
    SheetShade {}
    AccessibleElement {
        anchors.centerIn: parent
        width: Math.min(Theme.alertWidth, parent.width - 2 * Theme.alertPadding)
        height: texts.height + 2 * Theme.alertPadding + button.height
        kind: AccessibleElement.Dialog
        name: sheet.model.title

        Rectangle {
            anchors.fill: parent
            radius: Theme.alertRadius
            color: Theme.sheetColor
        }
        Column {
            id: texts
            x: Theme.alertPadding
            y: Theme.alertPadding
            width: parent.width - 2 * x
            spacing: Theme.alertSpacing
            AccessibleElement {
                width: parent.width
                height: titleText.implicitHeight
                kind: AccessibleElement.Heading
                name: sheet.model.title
                Text {
                    id: titleText
                    width: parent.width
                    text: sheet.model.title
                    textFormat: Text.PlainText
                    font: Theme.titleFont
                    color: Theme.textColor
                    wrapMode: Text.Wrap
                    horizontalAlignment: Text.AlignHCenter
                }
            }
            AccessibleElement {
                width: parent.width
                height: messageText.implicitHeight
                kind: AccessibleElement.Text
                name: sheet.model.message
                Text {
                    id: messageText
                    width: parent.width
                    text: sheet.model.message
                    textFormat: Text.PlainText
                    font: Theme.noteFont
                    color: Theme.textColor
                    wrapMode: Text.Wrap
                    horizontalAlignment: Text.AlignHCenter
                }
            }
        }
        Hairline {
            anchors.bottom: button.top
            width: parent.width
            color: Theme.sheetLineColor
        }
        SheetButton {
            id: button
            anchors.bottom: parent.bottom
            width: parent.width
            name: sheet.model.button
            prominent: true
            onPressed: sheet.closed()
        }
    }
}
