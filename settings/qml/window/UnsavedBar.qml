import QtQuick
import QuietDial.Settings

// Says at the lower end of the window which settings could not be saved, and why.
AccessibleElement {
    id: bar

    required property UnsavedNotice notice
    // Closed, or gone by itself, while the keyboard was on it.
    signal focusLost

    readonly property font textFont: Qt.font({
        pixelSize: notice.textSize,
        letterSpacing: Theme.noteFont.letterSpacing,
        hintingPreference: Font.PreferNoHinting
    })
    readonly property font sentenceFont: Qt.font({
        pixelSize: notice.textSize,
        letterSpacing: Theme.noteFont.letterSpacing,
        weight: Font.DemiBold,
        hintingPreference: Font.PreferNoHinting
    })

    visible: notice.shown
    implicitHeight: visible ? Math.max(Theme.hitSize, texts.height + 2 * Theme.noticeMargin) : 0
    clip: true
    kind: AccessibleElement.Notification
    name: notice.shown ? qsTr("%1. %2").arg(notice.sentence).arg(notice.settings) : ""
    onVisibleChanged: if (!visible && close.focus)
        focusLost()

    Connections {
        target: bar.notice
        function onChanged() {
            Qt.callLater(bar.announce); // qmllint disable type
        }
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.barColor
    }
    Hairline {
        width: parent.width
        color: Theme.barLineColor
    }
    Rectangle {
        anchors.left: parent.left
        width: Theme.noticeMark
        height: parent.height
        color: Theme.complaintColor
    }
    Column {
        id: texts
        anchors.left: parent.left
        anchors.leftMargin: Theme.mailMargin
        anchors.right: close.left
        y: Math.max(Theme.noticeMargin, (parent.height - height) / 2)
        spacing: Theme.noticeSpacing
        Text {
            width: parent.width
            text: bar.notice.sentence
            textFormat: Text.PlainText
            font: bar.sentenceFont
            color: Theme.textColor
            horizontalAlignment: Text.AlignLeft
            wrapMode: Text.Wrap
            maximumLineCount: Theme.noticeLines
            elide: Text.ElideRight
        }
        Text {
            width: parent.width
            text: bar.notice.settings
            textFormat: Text.PlainText
            font: bar.textFont
            color: Theme.textColor
            horizontalAlignment: Text.AlignLeft
            wrapMode: Text.Wrap
            maximumLineCount: Theme.noticeLines
            elide: Text.ElideRight
        }
    }
    AccessibleElement {
        id: close
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.hitSize
        height: Theme.hitSize
        kind: AccessibleElement.Button
        name: qsTr("Close")
        Accessible.role: Accessible.Button
        activeFocusOnTab: true
        // Escape would leave the page otherwise.
        Keys.onShortcutOverride: event => event.accepted = event.key === Qt.Key_Escape
        Keys.onEscapePressed: bar.notice.close()
        onPressed: bar.notice.close()

        SymbolItem {
            anchors.centerIn: parent
            width: Theme.crossSize
            height: Theme.crossSize
            stroke: Theme.crossStroke
            symbol: SymbolItem.Cross
            color: Theme.tint
            opacity: tap.pressed ? Theme.pressedOpacity : 1
        }
        TapHandler {
            id: tap
            onTapped: close.tap()
        }
        FocusFrame {
            target: close
        }
    }
}
