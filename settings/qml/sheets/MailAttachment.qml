import QtQuick
import QuietDial.Settings

// One file that goes with a mail; a tap opens it to be read.
AccessibleElement {
    id: attachment

    required property int index
    required property string modelData
    required property string size

    height: Theme.hitSize
    kind: AccessibleElement.Button
    name: qsTr("Attachment %1, %2").arg(modelData).arg(size)
    activeFocusOnTab: true
    Accessible.role: Accessible.Button

    Rectangle {
        anchors.fill: parent
        color: Theme.pressedShade
        visible: tap.pressed
    }
    MailLabel {
        id: label
        text: qsTr("Attached:")
    }
    MailText {
        anchors.left: label.right
        anchors.right: sizeText.left
        anchors.leftMargin: Theme.mailGap
        anchors.rightMargin: Theme.mailGap
        text: attachment.modelData
        elide: Text.ElideMiddle
    }
    MailText {
        id: sizeText
        anchors.right: chevron.left
        anchors.rightMargin: Theme.mailSizeGap
        text: attachment.size
        font: Theme.noteFont
        color: Theme.noteColor
        elide: Text.ElideNone
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
