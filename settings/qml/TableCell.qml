import QtQuick
import QuietDial.Settings

TableCellItem {
    id: cell

    readonly property bool down: tap.pressed && cell.selectable
    Accessible.role: Accessible.Button

    Rectangle {
        anchors.fill: parent
        color: cell.color
    }
    Rectangle {
        id: shade
        anchors.fill: parent
        // White rows take the shade as it is, coloured ones are darkened by as much.
        color: Qt.rgba(0, 0, 0, 1 - Theme.pressedColor.r)
        opacity: cell.down ? 1 : 0
        visible: opacity > 0
        Behavior on opacity {
            enabled: !cell.down
            NumberAnimation {
                duration: Theme.releaseTime
            }
        }
    }
    Rectangle {
        visible: cell.opensGroup
        width: parent.width
        height: Theme.hairline
        color: Theme.separatorColor
    }
    Rectangle {
        readonly property real rightInset: cell.closesGroup ? 0 : cell.separatorRight
        x: cell.closesGroup ? 0 : cell.separatorLeft
        y: parent.height - height
        width: parent.width - x - rightInset
        height: Theme.hairline
        color: Theme.separatorColor
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
            color: Qt.colorEqual(cell.color, "white") ? Theme.chevronColor : cell.tint
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
    TapRecognizer {
        view: cell
    }
    FocusFrame {
        target: cell
    }
}
