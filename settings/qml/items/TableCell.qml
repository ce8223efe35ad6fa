import QtQuick
import QuietDial.Settings

TableCellItem {
    id: cell

    readonly property bool down: tap.pressed && cell.selectable
    Accessible.role: Accessible.Button
    onDownChanged: if (down)
        shade.active = true

    Rectangle {
        anchors.fill: parent
        color: cell.color
    }
    Loader {
        id: shade
        anchors.fill: parent
        active: false  // until the row is pressed for the first time
        sourceComponent: Rectangle {
            color: Theme.pressedShade
            opacity: cell.down ? 1 : 0
            visible: opacity > 0
            Behavior on opacity {
                enabled: !cell.down
                NumberAnimation {
                    duration: Theme.releaseTime
                }
            }
        }
    }
    Hairline {
        visible: cell.opensGroup
        width: parent.width
    }
    Hairline {
        anchors.left: parent.left
        anchors.leftMargin: cell.closesGroup ? 0 : cell.separatorLeft
        anchors.right: parent.right
        anchors.rightMargin: cell.closesGroup ? 0 : cell.separatorRight
        anchors.bottom: parent.bottom
        visible: cell.closesGroup || !cell.down
    }
    Loader {
        active: cell.indicator !== TableCellItem.None
        anchors.right: parent.right
        anchors.rightMargin: Theme.indicatorMargin
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: cell.indicator === TableCellItem.Checkmark ? checkmark : chevron
    }
    Component {
        id: chevron
        SymbolItem {
            width: Theme.chevronWidth
            height: Theme.chevronHeight
            stroke: Theme.chevronStroke
            symbol: SymbolItem.Forward
            color: cell.plain ? Theme.chevronColor : cell.tint
        }
    }
    Component {
        id: checkmark
        SymbolItem {
            width: Theme.checkmarkWidth
            height: Theme.checkmarkHeight
            stroke: Theme.checkmarkStroke
            symbol: SymbolItem.Checkmark
            color: cell.tint
        }
    }
    TapHandler {
        id: tap
        onTapped: cell.tap()
    }
    FocusFrame {
        target: cell
    }
}
