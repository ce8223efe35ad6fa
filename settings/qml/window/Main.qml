import QtQuick
import QtQuick.Window
import QuietDial.Settings

AccessibleElement {
    id: main

    required property Navigation navigation
    required property Sheets sheets
    required property UnsavedNotice unsaved

    // What a keyboard on the screen covers at the window's lower end.
    readonly property real keyboardHeight: {
        const keyboard = Qt.inputMethod.keyboardRectangle;
        return Qt.inputMethod.visible && keyboard.height > 0
                ? Math.max(0, Math.min(height / 2, height - keyboard.y)) : 0;
    }
    readonly property bool covered: sheets.alert !== null || sheets.compose !== null
                                    || sheets.mail !== null

    // The keyboard comes back to where it was before the sheet.
    onCoveredChanged: if (!covered)
        pages.forceActiveFocus()
    LayoutMirroring.enabled: Appearance.mirrored
    LayoutMirroring.childrenInherit: true
    kind: AccessibleElement.Window // qmllint disable type
    name: navigation.title
    Accessible.role: Accessible.Pane

    Binding {
        target: Theme
        property: "devicePixelRatio"
        value: main.Screen.devicePixelRatio
    }
    Shortcut {
        sequences: [StandardKey.Quit, StandardKey.Close]
        onActivated: main.Window.window.close() // qmllint disable type
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.pageColor
    }
    NavigationView {
        id: pages
        anchors.top: parent.top
        anchors.bottom: unsavedBar.top
        width: parent.width
        enabled: !main.covered
        navigation: main.navigation
    }
    UnsavedBar {
        id: unsavedBar
        anchors.bottom: parent.bottom
        anchors.bottomMargin: main.keyboardHeight
        width: parent.width
        // The page has at least as much room.
        height: Math.min(implicitHeight, (parent.height - main.keyboardHeight) / 2)
        enabled: !main.covered
        notice: main.unsaved
        onFocusLost: pages.forceActiveFocus()
    }
    Loader {
        anchors.fill: parent
        active: main.sheets.compose !== null
        enabled: main.sheets.alert === null
        sourceComponent: ComposeSheet {
            model: main.sheets.compose
        }
    }
    Loader {
        anchors.fill: parent
        active: main.sheets.mail !== null
        enabled: main.sheets.alert === null
        sourceComponent: MailSheet {
            model: main.sheets.mail
        }
    }
    Loader {
        anchors.fill: parent
        active: main.sheets.alert !== null
        sourceComponent: AlertSheet {
            model: main.sheets.alert
            onClosed: main.sheets.closeAlert()
        }
    }
}
