import QtQuick
import QuietDial.Settings

// Chevron and the title of the page under this one; where there is no room for that title, "Back",
// and where there is none for that either, the chevron alone.
AccessibleElement {
    id: back

    property string title
    property real shift: 0
    property real room: 0

    readonly property real textLeft: Theme.barMargin + Theme.backWidth + Theme.barGap
    readonly property string shownTitle: textLeft + Math.ceil(titleMetrics.width) <= room ? title
                                         : textLeft + Math.ceil(backMetrics.width) <= room
                                           ? qsTr("Back") : ""

    kind: AccessibleElement.Button
    name: title === "" ? qsTr("Back") : qsTr("Back, %1").arg(title)
    Accessible.role: Accessible.Button
    activeFocusOnTab: true
    width: Math.max(Theme.hitSize, textLeft + label.width)

    TextMetrics {
        id: titleMetrics
        font: label.font
        text: back.title
    }
    TextMetrics {
        id: backMetrics
        font: label.font
        text: qsTr("Back")
    }
    Item {
        anchors.fill: parent
        opacity: tap.pressed ? Theme.pressedOpacity : 1
        SymbolItem {
            anchors.left: parent.left
            anchors.leftMargin: Theme.barMargin
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.backWidth
            height: Theme.backHeight
            stroke: Theme.backStroke
            symbol: SymbolItem.Back
            color: Theme.tint
        }
        Text {
            id: label
            anchors.left: parent.left
            anchors.leftMargin: back.textLeft + back.shift
            height: parent.height
            text: back.shownTitle
            textFormat: Text.PlainText
            font: Theme.bodyFont
            color: Theme.tint
            verticalAlignment: Text.AlignVCenter
        }
    }
    TapHandler {
        id: tap
        onTapped: back.tap()
    }
    FocusFrame {
        target: back
    }
}
