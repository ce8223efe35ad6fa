pragma Singleton
import QtQuick
import QuietDial.Settings

// Every measure and colour of the window's own that platform/uikit/metrics.h does not have already,
// in points.
QtObject {
    property real devicePixelRatio: 1
    readonly property real hairline: 1 / devicePixelRatio

    readonly property bool dark: Appearance.dark
    readonly property color textColor: dark ? "#ffffff" : "#000000"
    readonly property color pageColor: dark ? "#000000" : "#efeff4"
    readonly property color tint: dark ? "#0a84ff" : "#007aff"
    readonly property color separatorColor: dark ? "#38383a" : "#c8c7cc"
    // Laid over what is pressed: over a plain row it gives #d9d9d9, in the dark #3a3a3c.
    readonly property color pressedShade: dark ? "#22ffffff" : "#26000000"
    readonly property color chevronColor: dark ? "#5a5a5f" : "#c7c7cc"
    readonly property color placeholderColor: dark ? "#7c7c82" : "#c7c7cd"
    readonly property color focusColor: tint
    readonly property color scrollBarColor: dark ? "#80ffffff" : "#80000000"
    readonly property real focusWidth: 2

    readonly property font bodyFont: Qt.font({
        pixelSize: 17,
        letterSpacing: -0.5,
        hintingPreference: Font.PreferNoHinting
    })
    readonly property font titleFont: Qt.font({
        pixelSize: 17,
        letterSpacing: -0.5,
        weight: Font.DemiBold,
        hintingPreference: Font.PreferNoHinting
    })
    readonly property font noteFont: Qt.font({
        pixelSize: 13,
        letterSpacing: -0.08,
        hintingPreference: Font.PreferNoHinting
    })

    readonly property real barHeight: 44
    readonly property color barColor: dark ? "#161618" : "#f8f8f8"
    readonly property color barLineColor: dark ? "#38383a" : "#c4c4c4"
    readonly property real barMargin: 8
    readonly property real barPictureMargin: 15
    readonly property real barGap: 6
    readonly property real backWidth: 12
    readonly property real backHeight: 20
    readonly property real backStroke: 2.25
    readonly property real pressedOpacity: 0.3
    readonly property real disabledOpacity: 0.35
    readonly property real hitSize: 44

    readonly property real indicatorMargin: 15
    readonly property real chevronWidth: 8
    readonly property real chevronHeight: 13
    readonly property real chevronStroke: 2
    readonly property real checkmarkWidth: 15
    readonly property real checkmarkHeight: 12
    readonly property real checkmarkStroke: 2

    readonly property font segmentFont: Qt.font({
        pixelSize: 13,
        hintingPreference: Font.PreferNoHinting
    })
    readonly property real segmentRadius: 4
    readonly property real segmentLine: 1
    readonly property real segmentPressedOpacity: 0.15
    readonly property color segmentChosenColor: "white"

    readonly property real pillPadding: 4
    readonly property int smallestText: 11

    readonly property real noticeMargin: 10
    readonly property real noticeSpacing: 2
    readonly property real noticeMark: 4
    readonly property int noticeLines: 6
    readonly property real crossSize: 14
    readonly property real crossStroke: 2

    readonly property color wheelColor: "#8e8e93"
    readonly property int wheelSpokes: 12
    readonly property int wheelTime: 1000
    readonly property real wheelSpokeWidth: 0.09
    readonly property real wheelSpokeLength: 0.27
    readonly property real wheelFaintest: 0.25
    readonly property real webNoteMargin: 15

    readonly property int slideTime: 400
    readonly property int releaseTime: 300
    // How far the page below moves to the left and how much it dims while another slides over it.
    readonly property real slideParallax: 0.3
    readonly property real slideDim: 0.1
    // What stands in a row begins beside it: a press there is never kept from a field.
    readonly property real edgeWidth: 15

    readonly property real alertWidth: 270
    readonly property real alertRadius: 7
    readonly property real alertPadding: 18
    readonly property color sheetColor: dark ? "#2c2c2e" : "#f8f8f8"
    readonly property color sheetLineColor: dark ? "#48484a" : "#b5b5b5"
    readonly property color dimColor: dark ? "#99000000" : "#66000000"
    readonly property color paperColor: dark ? "#1c1c1e" : "white"
    readonly property color noteColor: dark ? "#98989f" : "#8e8e93"
    readonly property color complaintColor: dark ? "#ff453a" : "#ff3b30"
    readonly property real mailWidth: 560
    readonly property real mailMargin: 15
    readonly property real composeMargin: 12
    readonly property real composeWidth: 400
    readonly property real composeTextHeight: 132
}
