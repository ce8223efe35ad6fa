import QtQuick
import QuietDial.Settings

// An attachment, to be read.
AccessibleElement {
    id: reader

    kind: AccessibleElement.Text
    activeFocusOnTab: true

    function takeFocus() {
        page.contentY = 0;
        forceActiveFocus(Qt.TabFocusReason);
    }
    function scrollBy(way) {
        const last = Math.max(0, page.contentHeight - page.height);
        page.contentY = Math.max(0, Math.min(last, page.contentY + way));
    }
    Keys.onUpPressed: scrollBy(-Theme.hitSize)
    Keys.onDownPressed: scrollBy(Theme.hitSize)
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
            return;
        scrollBy(event.key === Qt.Key_PageUp ? -page.height : page.height);
        event.accepted = true;
    }

    Flickable {
        id: page
        anchors.fill: parent
        anchors.leftMargin: Theme.mailMargin
        anchors.rightMargin: Theme.mailMargin
        contentHeight: content.implicitHeight + 2 * Theme.composeMargin
        clip: true
        Text {
            id: content
            y: Theme.composeMargin
            width: page.width
            text: reader.name
            textFormat: Text.PlainText
            font: Theme.noteFont
            color: Theme.textColor
            wrapMode: Text.Wrap
        }
    }
    ScrollBar {
        flickable: page
    }
}
