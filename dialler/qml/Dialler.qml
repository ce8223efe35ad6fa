import QtQuick
import QtQuick.Window
import QuietDial.Dialler
import QuietDial.Settings

AccessibleElement {
    id: dialler

    required property CallScreen callScreen
    // Null where only a link's call is shown.
    required property Keypad keypad
    required property real textScale
    required property var pictures
    required property var pressedPictures

    LayoutMirroring.enabled: Appearance.mirrored
    LayoutMirroring.childrenInherit: true
    kind: AccessibleElement.Window
    name: callScreen.open ? qsTr("Call") : qsTr("Keypad")
    Accessible.role: Accessible.Pane

    Binding {
        target: Theme
        property: "devicePixelRatio"
        value: dialler.Screen.devicePixelRatio
    }
    Binding {
        target: DiallerTheme
        property: "textScale"
        value: dialler.textScale
    }
    Binding {
        target: DiallerTheme
        property: "pictures"
        value: dialler.pictures
    }
    Binding {
        target: DiallerTheme
        property: "pressedPictures"
        value: dialler.pressedPictures
    }
    Shortcut {
        sequences: [StandardKey.Quit, StandardKey.Close]
        onActivated: dialler.Window.window.close()
    }
    Loader {
        id: keypadLoader
        anchors.fill: parent
        active: dialler.keypad !== null
        visible: !dialler.callScreen.open
        enabled: visible
        focus: visible
        sourceComponent: KeypadView {
            keypad: dialler.keypad
        }
    }
    Loader {
        anchors.fill: parent
        active: dialler.callScreen.open || dialler.keypad === null
        focus: active
        sourceComponent: CallScreenView {
            screen: dialler.callScreen
        }
        // The keyboard goes back to the keys.
        onActiveChanged: if (!active && keypadLoader.item)
            keypadLoader.item.startOver()
    }
}
