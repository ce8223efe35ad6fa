import QtQuick
import QuietDial.Dialler
import QuietDial.Settings

// The number that is typed, the keys, and below them the buttons.
FocusScope {
    id: view

    required property Keypad keypad

    readonly property bool wide: width > height && height < DiallerTheme.lowWindow
    readonly property real padWidth: wide ? width / 2 : width
    readonly property real padTop: wide ? 8 : Math.max(90, height * 0.17)
    // Five rows, and the caption of the last one.
    readonly property real k: Math.max(0.5, Math.min(1.3, (padWidth - 16) / 264,
                                       (height - padTop - 16) / (5 * DiallerTheme.keyRow + 26)))

    focus: true
    function startOver() {
        buttons.startOver();
        forceActiveFocus();
    }
    Keys.onPressed: event => {
        if (buttons.takesKey(event)) {
            event.accepted = true;
        } else if (event.matches(StandardKey.Paste)) {
            keypad.paste();
            event.accepted = true;
        } else if (event.key === Qt.Key_Backspace) {
            keypad.erase();
            event.accepted = true;
        } else if (event.key === Qt.Key_Delete) {
            keypad.clear();
            event.accepted = true;
        } else if (event.text.length === 1 && "0123456789*#+".includes(event.text)) {
            keypad.type(event.text);
            event.accepted = true;
        }
    }

    Rectangle {
        anchors.fill: parent
        color: DiallerTheme.padColor
    }
    Item {
        id: display
        x: view.wide && Appearance.mirrored ? view.width / 2 : 0
        y: view.wide ? (view.height - height) / 2 : view.padTop - height - 12
        width: view.padWidth
        height: number.height + remark.height

        AccessibleElement {
            id: number
            x: DiallerTheme.margin
            width: parent.width - 2 * x
            height: 44 * Math.min(DiallerTheme.textScale, 1.4)
            kind: AccessibleElement.Heading
            name: view.keypad.number === "" ? qsTr("No number")
                                            : view.keypad.number.split("").join(" ")

            Text {
                anchors.fill: parent
                text: view.keypad.number
                textFormat: Text.PlainText
                color: DiallerTheme.keyText
                font.pixelSize: 34 * Math.min(DiallerTheme.textScale, 1.3)
                font.hintingPreference: Font.PreferNoHinting
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 18
                elide: Text.ElideLeft
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
        }
        Words {
            id: remark
            anchors.top: number.bottom
            x: DiallerTheme.margin
            width: parent.width - 2 * x
            text: view.keypad.remark
            size: 13
            color: DiallerTheme.padNote
            kind: AccessibleElement.Notification
            onTextChanged: Qt.callLater(announce)
        }
        PillButton {
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.verticalCenter: number.verticalCenter
            name: view.keypad.number === "" ? qsTr("Paste") : ""
            color: Theme.tint
            onPressed: view.keypad.paste()
        }
    }
    Item {
        id: pad
        readonly property real columnStep: DiallerTheme.keyColumn * view.k
        readonly property real rowStep: DiallerTheme.keyRow * view.k
        width: view.padWidth
        x: view.wide && !Appearance.mirrored ? view.width / 2 : 0
        y: view.padTop
        height: 5 * rowStep

        function columnX(column) {
            return width / 2 + (column - 1) * columnStep;
        }
        Repeater {
            // Keys are laid out alike in both directions.
            model: [["1", ""], ["2", "ABC"], ["3", "DEF"], ["4", "GHI"], ["5", "JKL"],
                ["6", "MNO"], ["7", "PQRS"], ["8", "TUV"], ["9", "WXYZ"], ["*", ""], ["0", "+"],
                ["#", ""]]
            KeypadKey {
                required property int index
                required property var modelData
                digit: modelData[0]
                letters: modelData[1]
                other: letters === "+" ? "+" : ""
                width: DiallerTheme.keySize * view.k
                x: pad.columnX(index % 3) - width / 2
                y: Math.floor(index / 3) * pad.rowStep
                onTyped: sign => view.keypad.type(sign)
            }
        }
        CallButtons {
            id: buttons
            y: 4 * pad.rowStep + 4 * view.k
            width: parent.width
            size: DiallerTheme.keySize * view.k
            mode: view.keypad.mode
            picture: view.keypad.picture
            offersAnonymous: true
            offersCall: true
            hasCallCaption: false
            callX: pad.columnX(1)
            slotX: pad.columnX(0)
            captionColor: DiallerTheme.padNote
            ringTrack: DiallerTheme.padRing
            tint: Theme.tint
            onCallPressed: view.keypad.call()
            onAnonymousPressed: view.keypad.callAnonymously()
        }
        AccessibleElement {
            id: eraser
            width: Math.max(Theme.hitSize, DiallerTheme.keySize * view.k)
            height: width
            x: pad.columnX(2) - width / 2
            y: buttons.y + (buttons.size - height) / 2
            kind: AccessibleElement.Button
            name: qsTr("Erase")
            hint: qsTr("Hold it to erase the whole number.")
            furtherAction: qsTr("Erase All")
            Accessible.role: Accessible.Button
            activeFocusOnTab: true
            visible: view.keypad.number !== ""
            onPressed: view.keypad.erase()
            onFurtherActionAsked: view.keypad.clear()

            MarkItem {
                anchors.centerIn: parent
                width: 27 * view.k
                height: width
                mark: MarkItem.Eraser
                color: eraserArea.pressed ? DiallerTheme.greyPressed : DiallerTheme.grey
                ground: DiallerTheme.padColor
                stroke: 3
            }
            MouseArea {
                id: eraserArea
                anchors.fill: parent
                onClicked: eraser.tap()
                onPressAndHold: view.keypad.clear()
            }
            FocusFrame {
                target: eraser
            }
        }
    }
}
