import QtQuick
import QuietDial.Settings

// One page of the stack, in its place for the depth in sight: the one on top of it comes from the
// right while this one moves to the left and dims.
FocusScope {
    id: pageView

    required property Page page
    required property int index
    required property Navigation navigation
    required property real depth

    readonly property real offset: index - depth
    readonly property bool onTop: index === navigation.top

    x: offset >= 0 ? offset * width : offset * width * Theme.slideParallax
    visible: Math.abs(offset) < 1
    enabled: onTop
    focus: onTop
    onOnTopChanged: if (onTop)
        surface.takeFocus()
    Component.onCompleted: if (onTop)
        surface.takeFocus()

    Rectangle {
        anchors.fill: parent
        color: Theme.pageColor
    }
    TapHandler {
        // A tap beside everything ends editing.
        onTapped: pageView.navigation.endEditing()
    }
    ViewSurface {
        id: surface
        anchors.fill: parent
        root: pageView.page.view
        live: pageView.onTop
    }
    Rectangle {
        anchors.fill: parent
        color: "black"
        opacity: pageView.offset < 0 ? -pageView.offset * Theme.slideDim : 0
        visible: opacity > 0
    }
    Rectangle {
        // The shadow of its left edge on the page under it.
        anchors.right: parent.left
        width: 8
        height: parent.height
        visible: pageView.offset > 0 && pageView.index > 0
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop {
                position: 0
                color: "transparent"
            }
            GradientStop {
                position: 1
                color: "#28000000"
            }
        }
    }
}
