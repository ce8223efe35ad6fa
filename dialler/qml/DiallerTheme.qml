pragma Singleton
import QtQuick
import QuietDial.Dialler
import QuietDial.Settings

// Every measure and colour of the dialler's own, in points.
QtObject {
    // Of the texts, by the user's choice; in buttons it is bounded.
    property real textScale: 1
    // The addresses of the anonymous button's pictures, and of those that are pressed.
    property var pictures: []
    property var pressedPictures: []

    readonly property bool dark: Appearance.dark
    readonly property real widest: 400
    readonly property real margin: 24
    readonly property real discSize: 66
    readonly property real slotPart: 0.3085
    readonly property real captionGap: 6
    readonly property real captionSize: 11
    readonly property real largestCaptionScale: 1.7
    readonly property real ringGap: 4.5
    readonly property real ringWidth: 3.2
    readonly property real arrowsSize: 14
    readonly property real portraitSize: 88
    readonly property real numberSize: 27
    readonly property real noteSize: 14.5
    readonly property real questionSize: 16.5
    readonly property real detailsSize: 12.5
    readonly property real lowWindow: 560

    readonly property color green: "#4cd964"
    readonly property color greenPressed: "#38b24e"
    readonly property color red: "#ff3b30"
    readonly property color redPressed: "#c82f26"
    readonly property color grey: "#8e8e93"
    readonly property color greyPressed: "#68686e"
    readonly property color markColor: "white"
    // Of each picture the part of its size in which its cut-out lies, which is filled with white.
    readonly property var cutOuts: [0.85, 0, 0.5, 0]

    readonly property color callTop: "#2b3344"
    readonly property color callBottom: "#161a24"
    readonly property color callText: "white"
    readonly property color callNote: "#bec4d0"
    readonly property color callLine: "#4a546a"
    readonly property color callRing: "#3a4660"
    readonly property color callTint: "#409cff"
    readonly property color portraitColor: "#7a8bad"

    readonly property color padColor: dark ? "#000000" : "#ffffff"
    readonly property color keyColor: dark ? "#333336" : "#e5e5ea"
    readonly property color keyPressed: dark ? "#5a5a5e" : "#c7c7cc"
    readonly property color keyText: dark ? "#ffffff" : "#000000"
    readonly property color padRing: dark ? "#1f3350" : "#d1e4ff"
    readonly property color padNote: dark ? "#98989f" : "#6d6d72"
    readonly property real keySize: 62
    readonly property real keyColumn: 88
    readonly property real keyRow: 72

    readonly property int settleTime: 320
    readonly property int fadeTime: 200
    readonly property int beatTime: 120
    readonly property real beat: 0.07

    function captionScale() {
        return Math.min(textScale, largestCaptionScale);
    }
}
