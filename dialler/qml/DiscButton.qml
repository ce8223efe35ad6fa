import QtQuick
import QuietDial.Dialler
import QuietDial.Settings

// A round button with a sign on it and a word below.
AccessibleElement {
    id: button

    property color color: DiallerTheme.grey
    property color pressedColor: DiallerTheme.greyPressed
    property bool held: area.pressed && area.containsMouse
    property string caption
    property color captionColor: DiallerTheme.callNote
    property real captionWidth: width * 1.4
    property real captionOpacity: 1
    property color focusColor: DiallerTheme.callTint
    // Whether a finger is followed here; who has gestures of its own follows it itself.
    property bool followsFinger: true
    default property alias sign: face.data

    width: DiallerTheme.discSize
    height: width
    kind: AccessibleElement.Button
    name: caption
    Accessible.role: Accessible.Button
    activeFocusOnTab: true

    Item {
        id: face
        anchors.fill: parent

        Rectangle {
            anchors.fill: parent
            radius: width / 2
            color: button.held ? button.pressedColor : button.color
        }
    }
    Rectangle {
        anchors.centerIn: parent
        width: parent.width + 10
        height: width
        radius: width / 2
        visible: button.focusVisible
        color: "transparent"
        border.color: button.focusColor
        border.width: 3
    }
    Text {
        anchors.top: parent.bottom
        anchors.topMargin: DiallerTheme.captionGap
        x: (parent.width - width) / 2
        width: button.captionWidth
        text: button.caption
        textFormat: Text.PlainText
        color: button.captionColor
        opacity: button.captionOpacity
        font.pixelSize: DiallerTheme.captionSize * DiallerTheme.captionScale()
        font.weight: Font.Medium
        font.hintingPreference: Font.PreferNoHinting
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
    }
    MouseArea {
        id: area
        anchors.fill: parent
        enabled: button.followsFinger
        onClicked: button.tap()
    }
}
