import QtQuick
import QuietDial.Dialler
import QuietDial.Settings

AccessibleElement {
    id: key

    required property string digit
    property string letters
    // What holding it types; empty for nothing else.
    property string other
    signal typed(string sign)

    readonly property real k: width / 75
    readonly property bool held: area.pressed && area.containsMouse

    height: width
    kind: AccessibleElement.Button
    name: digit === "*" ? qsTr("star") : digit === "#" ? qsTr("hash") : digit
    hint: other === "" ? "" : qsTr("Hold it for plus.")
    furtherAction: other === "" ? "" : qsTr("Plus")
    Accessible.role: Accessible.Button
    activeFocusOnTab: true
    onPressed: typed(digit)
    onFurtherActionAsked: typed(other)

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: key.held ? DiallerTheme.keyPressed : DiallerTheme.keyColor
        border.color: Theme.focusColor
        border.width: key.focusVisible ? 3 : 0
    }
    MarkItem {
        anchors.centerIn: parent
        visible: key.digit === "*"
        width: 24 * key.k
        height: width
        mark: MarkItem.Star
        stroke: 2.6 * key.k
        color: DiallerTheme.keyText
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        // With letters below, the digit stands higher.
        y: (parent.height - height) / 2 - (key.letters === "" ? 0 : 6 * key.k)
        visible: key.digit !== "*"
        text: key.digit
        color: DiallerTheme.keyText
        font.pixelSize: 35 * key.k
        font.hintingPreference: Font.PreferNoHinting
    }
    Text {
        anchors.horizontalCenter: parent.horizontalCenter
        y: parent.height / 2 + (key.letters === "+" ? 9 : 12.5) * key.k
        text: key.letters
        color: DiallerTheme.keyText
        font.pixelSize: (key.letters === "+" ? 15 : 9.8) * key.k
        font.weight: key.letters === "+" ? Font.Normal : Font.DemiBold
        font.letterSpacing: key.letters === "+" ? 0 : 1.6 * key.k
        font.hintingPreference: Font.PreferNoHinting
    }
    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: key.tap()
        onPressAndHold: mouse => {
            if (key.other === "")
                mouse.accepted = false;
            else
                key.typed(key.other);
        }
    }
}
