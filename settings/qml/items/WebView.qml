import QtQuick
import QuietDial.Settings

// A web page where the engine can show it, else a note. What is only measured is laid out at the
// width that it would be shown at.
WebViewItem {
    id: view

    readonly property real pageWidth: width > 0 ? width : parent ? parent.width : 0
    layoutWidth: pageWidth
    Accessible.role: Accessible.WebDocument

    Loader {
        id: page
        width: view.pageWidth
        height: Math.max(1, view.height)
        active: view.usesEngine && view.pageWidth > 0
        // By its address: the engine's module is not there, or not loaded, before it is needed.
        source: "WebPage.qml"
        onStatusChanged: if (status === Loader.Error)
            view.engineFailed()
        onLoaded: item.view = view
    }
    ScrollThrough {
        anchors.fill: page
        visible: view.usesEngine && !view.measuring
    }
    Rectangle {
        width: page.width
        height: cutNote.implicitHeight
        anchors.bottom: page.bottom
        visible: view.cut && view.usesEngine && !view.measuring
        color: Theme.paperColor

        Hairline {
            width: parent.width
        }
        WebNote {
            id: cutNote
            width: parent.width
            text: qsTr("This page is too long to be shown here as a whole.")
            onOpened: view.openOutside(view.url)
        }
    }
    WebNote {
        width: view.pageWidth
        text: qsTr("This page cannot be shown here.")
        visible: !view.usesEngine && !view.measuring
        onImplicitHeightChanged: view.setNoteHeight(implicitHeight)
        onOpened: view.openOutside(view.url)
    }
}
