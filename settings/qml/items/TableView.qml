import QtQuick
import QuietDial.Settings

TableItem {
    id: table

    container: flickable.contentItem
    activeFocusOnTab: false
    scrolling: flickable.moving
    Accessible.role: Accessible.List
    onRevealRequested: (y, height) => {
        // A row that is higher than the list is in sight as long as any of it is.
        const shown = y < flickable.contentY + flickable.height && y + height > flickable.contentY;
        if (height > flickable.height && shown)
            return;
        const room = Math.min(flickable.height / 2, height);
        const top = Math.max(0, y - room);
        const bottom = y + height + room - flickable.height;
        const last = Math.max(0, flickable.contentHeight - flickable.height);
        const goal = Math.min(last, flickable.contentY > top ? top
                              : flickable.contentY < bottom ? bottom : flickable.contentY);
        if (goal !== flickable.contentY) {
            flickable.cancelFlick();
            flickable.contentY = goal;
        }
    }

    Flickable {
        id: flickable
        anchors.fill: parent
        contentWidth: width
        contentHeight: table.contentHeight
        flickableDirection: Flickable.VerticalFlick
        maximumFlickVelocity: Theme.flickVelocity
        flickDeceleration: Theme.flickDeceleration
        pixelAligned: true
        // What is typed into stays in sight when a keyboard takes room from the list.
        onHeightChanged: table.revealFocus()
        clip: true
    }
    ScrollBar {
        flickable: flickable
    }
}
