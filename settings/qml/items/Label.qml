import QtQuick
import QuietDial.Settings

LabelItem {
    id: label

    Rectangle {
        anchors.fill: parent
        visible: color.a > 0
        color: label.color
        radius: label.radius
    }
    Text {
        readonly property bool inPill: label.radius > 0

        anchors.fill: parent
        // A pill that is short of room has its text a little smaller before any of it is cut.
        anchors.leftMargin: inPill ? Theme.pillPadding : 0
        anchors.rightMargin: anchors.leftMargin
        fontSizeMode: inPill ? Text.HorizontalFit : label.shrinks ? Text.VerticalFit : Text.FixedSize
        minimumPixelSize: Theme.smallestText
        text: label.text
        textFormat: Text.PlainText
        font: label.font
        color: label.textColor
        horizontalAlignment: label.alignment
        verticalAlignment: label.lines === 1 ? Text.AlignVCenter : Text.AlignTop
        wrapMode: label.lines === 1 ? Text.NoWrap : Text.Wrap
        maximumLineCount: label.lines > 0 ? label.lines : 0x7fffffff
        elide: Text.ElideRight
    }
}
