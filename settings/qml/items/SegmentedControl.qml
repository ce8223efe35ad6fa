import QtQuick
import QuietDial.Settings

SegmentedControlItem {
    id: control

    Accessible.role: Accessible.Grouping
    opacity: enabled ? 1 : Theme.disabledOpacity

    Repeater {
        model: control.titles

        SegmentItem {
            id: segment

            required property int index
            required property string modelData
            readonly property bool last: index === control.titles.length - 1

            number: index
            title: modelData
            chosen: index === control.selected
            Accessible.role: Accessible.RadioButton
            x: (Appearance.mirrored ? control.titles.length - 1 - index : index) * width
            width: control.width / control.titles.length
            height: control.height

            Item {
                // A piece of the whole control's shape, so that only the outer corners are round.
                anchors.fill: parent
                clip: true

                Rectangle {
                    x: -segment.x
                    width: control.width
                    height: control.height
                    radius: Theme.segmentRadius
                    color: control.tint
                    opacity: segment.chosen ? 1 : tap.pressed ? Theme.segmentPressedOpacity : 0
                }
            }
            Rectangle {
                visible: !segment.last
                anchors.right: parent.right
                anchors.rightMargin: -width / 2
                width: Theme.segmentLine
                height: parent.height
                color: control.tint
            }
            Text {
                anchors.fill: parent
                anchors.leftMargin: Theme.segmentLine * 2
                anchors.rightMargin: anchors.leftMargin
                text: segment.modelData
                textFormat: Text.PlainText
                font: Theme.segmentFont
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: Theme.smallestText
                color: segment.chosen ? Theme.segmentChosenColor : control.tint
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                elide: Text.ElideRight
            }
            TapHandler {
                id: tap
                margin: Math.max(0, (Theme.hitSize - segment.height) / 2)
                onTapped: segment.tap()
            }
            FocusFrame {
                target: segment
                anchors.margins: -Theme.focusWidth - 1
                radius: Theme.segmentRadius + 2
            }
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.segmentRadius
        color: "transparent"
        border.color: control.tint
        border.width: Theme.segmentLine
    }
}
