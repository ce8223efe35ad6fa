import QtQuick
import QuietDial.Dialler
import QuietDial.Settings

// A word to press on a page of the dialler.
AccessibleElement {
    id: button

    property color color: DiallerTheme.callTint

    kind: AccessibleElement.Button
    Accessible.role: Accessible.Button
    activeFocusOnTab: true
    visible: name.length > 0
    implicitWidth: Math.min(parent.width, label.implicitWidth + 40)
    width: implicitWidth
    height: visible ? Math.max(Theme.hitSize, label.implicitHeight + 16) : 0

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: area.pressed && area.containsMouse ? Qt.alpha(button.color, 0.25) : "transparent"
        border.color: button.color
        border.width: button.focusVisible ? 3 : 1
    }
    Text {
        id: label
        anchors.centerIn: parent
        width: Math.min(implicitWidth, parent.width - 24)
        text: button.name
        textFormat: Text.PlainText
        color: button.color
        font.pixelSize: 17 * DiallerTheme.captionScale()
        font.hintingPreference: Font.PreferNoHinting
        elide: Text.ElideRight
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: button.tap()
    }
}
