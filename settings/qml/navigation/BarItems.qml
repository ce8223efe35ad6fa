import QtQuick
import QuietDial.Settings

// What the bar shows for one page. Title and back button move with the page, at half its pace, and
// fade.
Item {
    id: items

    required property Page page
    required property int index
    required property Navigation navigation
    required property real depth

    readonly property real offset: index - depth
    readonly property real shift: offset * width / 2
    readonly property real titleWidth: page.hasTitleView ? titleSurface.width : titleMetrics.width
    readonly property real leftEdge: (back.visible ? back.width : 0) + Theme.barMargin
    readonly property real rightEdge: (page.rightButton.present ? right.width : 0) + Theme.barMargin

    visible: Math.abs(offset) < 1
    enabled: index === navigation.top
    opacity: 1 - Math.min(1, Math.abs(offset) * 1.5)

    BackButton {
        id: back
        anchors.left: parent.left
        visible: items.index > 0
        height: parent.height
        shift: items.shift
        title: items.page.backTitle
        room: (items.width - items.titleWidth) / 2 - Theme.barMargin
        onPressed: items.navigation.back()
    }
    TextMetrics {
        id: titleMetrics
        font: Theme.titleFont
        text: items.page.title
    }
    BarButtonView {
        id: right
        anchors.right: parent.right
        button: items.page.rightButton
        navigation: items.navigation
    }
    AccessibleElement {
        id: heading

        // Centred in the bar, pushed aside only as far as the buttons demand.
        readonly property real room: items.width - items.leftEdge - items.rightEdge
        readonly property real wanted: Math.min(room, Math.ceil(items.titleWidth) + 1)
        anchors.left: parent.left
        anchors.leftMargin: items.shift
                            + Math.max(items.leftEdge,
                                       Math.min((items.width - wanted) / 2,
                                                items.width - items.rightEdge - wanted))
        width: wanted
        height: parent.height
        kind: AccessibleElement.Heading
        name: items.page.title

        Text {
            id: titleText
            anchors.fill: parent
            visible: !items.page.hasTitleView
            text: items.page.title
            textFormat: Text.PlainText
            font: Theme.titleFont
            color: Theme.textColor
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
        }
    }
    ViewSurface {
        id: titleSurface
        anchors.centerIn: parent
        anchors.horizontalCenterOffset: items.shift
        width: implicitWidth
        height: implicitHeight
        fillsSurface: false
        root: items.page.titleView // qmllint disable type
        live: items.index === items.navigation.top
        visible: items.page.hasTitleView
    }
}
