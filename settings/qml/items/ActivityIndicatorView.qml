import QtQuick
import QuietDial.Settings

// A wheel of spokes of which one after the other is the darkest.
ActivityIndicatorItem {
    id: wheel

    property int step
    Accessible.role: Accessible.Animation

    NumberAnimation on step {
        from: 0
        to: Theme.wheelSpokes
        duration: Theme.wheelTime
        loops: Animation.Infinite
        running: wheel.animating && wheel.visible
    }
    Repeater {
        model: Theme.wheelSpokes
        Rectangle {
            required property int index
            readonly property int age: (wheel.step + Theme.wheelSpokes - index) % Theme.wheelSpokes

            x: (wheel.width - width) / 2
            width: wheel.width * Theme.wheelSpokeWidth
            height: wheel.height * Theme.wheelSpokeLength
            radius: width / 2
            color: Theme.wheelColor
            opacity: Math.max(Theme.wheelFaintest, 1 - age / Theme.wheelSpokes)
            antialiasing: true
            transform: Rotation {
                origin.x: wheel.width * Theme.wheelSpokeWidth / 2
                origin.y: wheel.height / 2
                angle: 360 * index / Theme.wheelSpokes
            }
        }
    }
}
