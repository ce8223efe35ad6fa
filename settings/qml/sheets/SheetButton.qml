import QtQuick
import QuietDial.Settings

// A word to press in a sheet.
AccessibleElement {
    id: button

    property bool prominent: false

    kind: AccessibleElement.Button
    Accessible.role: Accessible.Button
    activeFocusOnTab: true
    implicitWidth: Math.max(Theme.hitSize, label.implicitWidth + 2 * Theme.barPictureMargin)
    implicitHeight: Theme.hitSize

    Rectangle {
        anchors.fill: parent
        color: Theme.pressedShade
        visible: tap.pressed
    }
    Text {
        id: label
        anchors.fill: parent
        text: button.name
        textFormat: Text.PlainText
        font: button.prominent ? Theme.titleFont : Theme.bodyFont
        color: Theme.tint
        opacity: button.enabled ? 1 : Theme.disabledOpacity
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    TapHandler {
        id: tap
        onTapped: button.tap()
    }
    FocusFrame {
        target: button
    }
}
