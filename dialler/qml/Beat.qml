import QtQuick
import QuietDial.Dialler
import QuietDial.Settings

// Swells once after a while, to be seen.
QtObject {
    id: beat

    property int delay: 0
    property bool running: false
    property real scale: 1

    onRunningChanged: {
        swell.stop();
        scale = 1;
        if (running && !Appearance.reducedMotion)
            swell.start();
    }
    property SequentialAnimation swell: SequentialAnimation {
        PauseAnimation {
            duration: beat.delay
        }
        NumberAnimation {
            target: beat
            property: "scale"
            to: 1 + DiallerTheme.beat
            duration: DiallerTheme.beatTime
            easing.type: Easing.InOutQuad
        }
        NumberAnimation {
            target: beat
            property: "scale"
            to: 1
            duration: DiallerTheme.beatTime
            easing.type: Easing.InOutQuad
        }
    }
}
