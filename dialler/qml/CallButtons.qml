import QtQuick
import QuietDial.Dialler
import QuietDial.Settings

// The green button, and the one that calls anonymously: how this one comes is the user's choice.
Item {
    id: buttons

    required property int mode
    required property int picture
    required property bool offersAnonymous
    required property bool offersCall
    // The middle of each.
    required property real callX
    required property real slotX
    property real size: DiallerTheme.discSize
    property bool hasCallCaption: true
    property color captionColor: DiallerTheme.callNote
    property color ringTrack: DiallerTheme.callRing
    property color tint: DiallerTheme.callTint
    readonly property bool revealed: offersAnonymous && gesture.revealed
    readonly property alias callButton: green
    signal callPressed
    signal anonymousPressed

    // How far the anonymous button has come, from 0 under the green one to 1.
    property real place: revealed ? 1 : gesture.pull

    height: size
    Behavior on place {
        enabled: !Appearance.reducedMotion && !(gesture.pressed && !gesture.revealed)
        NumberAnimation {
            duration: DiallerTheme.settleTime
            easing.type: Easing.OutBack
            easing.overshoot: 0.9
        }
    }

    // By a key or an accessible action: the keyboard goes with it.
    function reveal() {
        if (!offersAnonymous || gesture.revealed)
            return;
        gesture.reveal();
        anonymous.forceActiveFocus(Qt.TabFocusReason);
    }
    function takesKey(event) {
        const isMenu = event.key === Qt.Key_Menu
                || event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier;
        if (isMenu)
            reveal();
        return isMenu;
    }
    function startOver() {
        gesture.hide();
    }

    RevealGesture {
        id: gesture
        mode: buttons.offersAnonymous && buttons.offersCall ? buttons.mode : RevealGesture.Always
        distance: Math.abs(buttons.callX - buttons.slotX)
        onTapped: green.tap()
    }
    FrameAnimation {
        running: gesture.pressed && gesture.mode === RevealGesture.Hold && !gesture.revealed
        onTriggered: gesture.tick()
    }
    MarkItem {
        // How long it has been held.
        anchors.centerIn: green
        width: buttons.size + 2 * (DiallerTheme.ringGap + DiallerTheme.ringWidth)
        height: width
        mark: MarkItem.Ring
        stroke: DiallerTheme.ringWidth
        color: DiallerTheme.dark ? buttons.tint : "#007aff"
        ground: buttons.ringTrack
        part: gesture.revealed ? 1 : gesture.fill
        visible: gesture.mode === RevealGesture.Hold && gesture.pressed
    }
    MarkItem {
        anchors.centerIn: anonymous
        width: buttons.size + 2 * (DiallerTheme.ringGap + DiallerTheme.ringWidth)
        height: width
        mark: MarkItem.Ring
        stroke: DiallerTheme.ringWidth
        color: "#007aff"
        visible: anonymous.held
    }
    DiscButton {
        id: anonymous
        x: buttons.callX + (buttons.slotX - buttons.callX) * buttons.place - width / 2
        width: buttons.size
        visible: buttons.offersAnonymous && buttons.place > 0.02
        enabled: buttons.revealed
        color: "transparent"
        pressedColor: "transparent"
        caption: qsTr("Call Anonymously")
        captionColor: buttons.captionColor
        captionWidth: Math.min(buttons.size * 2, Math.abs(buttons.callX - buttons.slotX) * 1.12)
        captionOpacity: buttons.revealed ? 1 : 0
        focusColor: buttons.tint
        onPressed: buttons.anonymousPressed()

        Rectangle {
            anchors.centerIn: parent
            width: parent.width * (DiallerTheme.cutOuts[buttons.picture - 1] ?? 0)
            height: width
            radius: width / 2
            visible: width > 0
            color: DiallerTheme.markColor
        }
        Picture {
            // A margin lies around the shapes.
            anchors.centerIn: parent
            width: parent.width * 1.09
            height: width
            asynchronous: false
            source: (anonymous.held ? DiallerTheme.pressedPictures
                                    : DiallerTheme.pictures)[buttons.picture - 1] ?? ""
        }
        transform: Scale {
            origin.x: anonymous.width / 2
            origin.y: anonymous.height / 2
            xScale: anonymousBeat.scale
            yScale: anonymousBeat.scale
        }
    }
    MarkItem {
        x: (buttons.callX + buttons.slotX - width) / 2
        y: (buttons.size - height) / 2
        width: DiallerTheme.arrowsSize
        height: width
        mark: MarkItem.Arrows
        color: buttons.tint
        stroke: 2.3
        visible: buttons.revealed && gesture.mode === RevealGesture.Swipe && buttons.place > 0.9
        rotation: buttons.slotX > buttons.callX ? 180 : 0
    }
    DiscButton {
        id: green
        x: buttons.callX - width / 2
        width: buttons.size
        visible: buttons.offersCall
        color: DiallerTheme.green
        pressedColor: DiallerTheme.greenPressed
        held: gesture.pressed
        followsFinger: false
        caption: buttons.hasCallCaption ? qsTr("Call") : ""
        name: qsTr("Call")
        captionColor: buttons.captionColor
        focusColor: buttons.tint
        hint: !buttons.offersAnonymous || gesture.revealed ? ""
              : gesture.mode === RevealGesture.Hold
                ? qsTr("Hold it, or press the Menu key, for Call Anonymously.")
                : qsTr("Swipe it to either side, or press the Menu key, for Call Anonymously.")
        furtherAction: buttons.offersAnonymous && !gesture.revealed
                       ? qsTr("Show Call Anonymously") : ""
        onFurtherActionAsked: buttons.reveal()
        onPressed: buttons.callPressed()

        MarkItem {
            anchors.centerIn: parent
            width: parent.width * 0.51
            height: width
            mark: MarkItem.Handset
            color: DiallerTheme.markColor
        }
        MouseArea {
            anchors.fill: parent
            preventStealing: true
            function placeOf(mouse) {
                return mapToItem(buttons, mouse.x, mouse.y);
            }
            onPressed: mouse => gesture.press(placeOf(mouse))
            onPositionChanged: mouse => gesture.move(placeOf(mouse))
            onReleased: gesture.release()
            onCanceled: gesture.cancel()
        }
        transform: Scale {
            origin.x: green.width / 2
            origin.y: green.height / 2
            xScale: greenBeat.scale
            yScale: greenBeat.scale
        }
    }
    Beat {
        id: greenBeat
        delay: 250
        running: buttons.visible && gesture.mode === RevealGesture.Always && buttons.revealed
    }
    Beat {
        id: anonymousBeat
        delay: 360
        running: greenBeat.running
    }
}
