import QtQuick
import QuietDial.Dialler
import QuietDial.Settings

// Who is called, what is asked, and the buttons; all of it can be scrolled where it has no room.
FocusScope {
    id: view

    required property CallScreen screen

    readonly property bool wide: width > height && height < DiallerTheme.lowWindow
    readonly property real column: Math.min(wide ? (width - DiallerTheme.margin) / 2 : width,
                                            DiallerTheme.widest)
    readonly property bool asks: screen.state === CallScreen.Asking
                                 || screen.state === CallScreen.Offering
    readonly property bool isFinal: screen.open && !asks && screen.state !== CallScreen.Placing
    // Room to be generous with.
    readonly property real room: wide || DiallerTheme.textScale > 1.3
                                 ? 0 : Math.max(0, Math.min(200, height - DiallerTheme.lowWindow))
    // What is left of the height.
    readonly property real rest: Math.max(0, height - who.height - (wide ? 0 : what.height))

    focus: true
    onAsksChanged: Qt.callLater(giveFocus)
    onIsFinalChanged: Qt.callLater(giveFocus)
    Component.onCompleted: giveFocus()
    function giveFocus() {
        if (cancel.visible)
            cancel.forceActiveFocus(Qt.OtherFocusReason);
        else
            forceActiveFocus();
    }
    Connections {
        target: view.screen
        function onClosed() {
            buttons.startOver();
        }
    }
    Keys.onPressed: event => event.accepted = view.asks && buttons.takesKey(event)
    Keys.onEscapePressed: screen.cancel()

    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop {
                position: 0
                color: DiallerTheme.callTop
            }
            GradientStop {
                position: 1
                color: DiallerTheme.callBottom
            }
        }
    }
    Flickable {
        anchors.fill: parent
        contentHeight: Math.max(height, what.y + what.height, who.y + who.height)
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        flickableDirection: Flickable.VerticalFlick

        Column {
            id: who
            width: view.column - 2 * DiallerTheme.margin
            x: view.wide ? (Appearance.mirrored ? view.width / 2 : 0)
                           + (view.width / 2 - width) / 2
                         : (view.width - width) / 2
            y: view.wide ? view.rest / 2 : Math.min(view.rest * 0.35, view.height * 0.13)
            spacing: 6
            bottomPadding: view.wide ? 0 : 18 + view.room * 0.2

            MarkItem {
                anchors.horizontalCenter: parent.horizontalCenter
                width: DiallerTheme.portraitSize
                height: width
                mark: MarkItem.Portrait
                ground: DiallerTheme.portraitColor
                color: "white"
                visible: view.wide || view.height > DiallerTheme.lowWindow - 60
            }
            Item {
                width: 1
                height: 6
            }
            Words {
                width: parent.width
                text: view.screen.number === "" ? "" : "\u2066" + view.screen.number + "\u2069"
                name: view.screen.number
                size: DiallerTheme.numberSize
                fits: true
                color: DiallerTheme.callText
                kind: AccessibleElement.Heading
            }
            Words {
                width: parent.width
                text: view.screen.country
                color: DiallerTheme.callNote
            }
        }
        Rectangle {
            visible: !view.wide
            x: who.x
            y: who.y + who.height
            width: who.width
            height: 1
            color: DiallerTheme.callLine
        }
        Column {
            id: what
            width: view.column
            x: view.wide ? (Appearance.mirrored ? 0 : view.width / 2)
                           + (view.width / 2 - width) / 2
                         : (view.width - width) / 2
            y: view.wide ? Math.max(0, (view.height - height) / 2) : who.y + who.height
            topPadding: 18 + view.room * 0.05
            bottomPadding: 18
            spacing: 16 + view.room * 0.1

            Words {
                x: DiallerTheme.margin
                width: parent.width - 2 * x
                text: view.screen.state === CallScreen.Asking && view.screen.number === ""
                      ? qsTr("One moment …")
                      : view.asks && (view.screen.offersCall || view.screen.offersAnonymous)
                        ? view.screen.question : ""
                size: DiallerTheme.questionSize
                weight: Font.DemiBold
                color: DiallerTheme.callText
            }
            Words {
                id: sentence
                x: DiallerTheme.margin
                width: parent.width - 2 * x
                text: view.screen.sentence
                size: view.asks ? DiallerTheme.noteSize : DiallerTheme.questionSize
                color: DiallerTheme.callText
                kind: AccessibleElement.Notification
                onTextChanged: Qt.callLater(announce)
            }
            PillButton {
                anchors.horizontalCenter: parent.horizontalCenter
                name: view.screen.remedy
                onPressed: view.screen.takeRemedy()
            }
            PillButton {
                anchors.horizontalCenter: parent.horizontalCenter
                name: view.screen.canTryAgain ? qsTr("Try Again") : ""
                onPressed: view.screen.tryAgain()
            }
            Item {
                width: parent.width
                height: visible ? DiallerTheme.discSize + DiallerTheme.captionGap
                                  + 30 * DiallerTheme.captionScale() : 0
                visible: view.asks || view.isFinal

                DiscButton {
                    id: cancel
                    x: parent.width * (view.asks ? Appearance.mirrored
                                                   ? 0.5 + DiallerTheme.slotPart
                                                   : 0.5 - DiallerTheme.slotPart : 0.5) - width / 2
                    color: DiallerTheme.red
                    pressedColor: DiallerTheme.redPressed
                    caption: view.asks ? qsTr("Cancel") : qsTr("Close")
                    onPressed: view.screen.cancel()

                    MarkItem {
                        anchors.centerIn: parent
                        width: parent.width * 0.56
                        height: width
                        mark: MarkItem.HungUp
                        color: DiallerTheme.markColor
                    }
                }
                CallButtons {
                    id: buttons
                    width: parent.width
                    visible: view.asks
                    mode: view.screen.mode
                    picture: view.screen.picture
                    offersAnonymous: view.screen.offersAnonymous
                    offersCall: view.screen.offersCall
                    callX: width * (Appearance.mirrored ? 0.5 - DiallerTheme.slotPart
                                                        : 0.5 + DiallerTheme.slotPart)
                    slotX: width / 2
                    onCallPressed: view.screen.call()
                    onAnonymousPressed: view.screen.callAnonymously()
                }
            }
            Words {
                x: DiallerTheme.margin
                width: parent.width - 2 * x
                text: view.screen.details
                size: DiallerTheme.detailsSize
                color: DiallerTheme.callNote
            }
            Words {
                x: DiallerTheme.margin
                width: parent.width - 2 * x
                text: view.screen.droppedLinks
                size: DiallerTheme.detailsSize
                color: DiallerTheme.callText
                kind: AccessibleElement.Notification
                onTextChanged: Qt.callLater(announce)
            }
        }
    }
}
