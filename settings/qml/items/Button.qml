import QtQuick
import QuietDial.Settings

ButtonItem {
    id: button

    Accessible.role: Accessible.Button

    Rectangle {
        anchors.fill: parent
        visible: color.a > 0
        color: button.color
        radius: button.radius
    }
    Picture {
        anchors.fill: parent
        // Small enough to be there at once, so that another tint does not blink.
        asynchronous: false
        source: button.source
        opacity: !button.enabled ? Theme.disabledOpacity : tap.pressed ? Theme.pressedOpacity : 1
    }
    TapHandler {
        id: tap
        margin: Math.max(0, (Theme.hitSize - Math.min(button.width, button.height)) / 2)
        onTapped: button.tap()
    }
    FocusFrame {
        target: button
    }
}
