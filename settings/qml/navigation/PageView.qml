import QtQuick
import QuietDial.Settings

// One page of the stack, in its place for the depth in sight: the one on top of it comes from
// the right while this one moves to the left and dims; the other way round in a mirrored window.
FocusScope {
    id: pageView

    required property Page page
    required property int index
    required property Navigation navigation
    required property real depth

    readonly property real offset: index - depth
    readonly property bool onTop: index === navigation.top

    x: (Appearance.mirrored ? -1 : 1) * offset * width * (offset >= 0 ? 1 : Theme.slideParallax)
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
    ViewSurface {
        id: surface
        anchors.fill: parent
        root: pageView.page.view // qmllint disable type
        live: pageView.onTop
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.slideDimColor
        opacity: pageView.offset < 0 ? -pageView.offset * Theme.slideDim : 0
        visible: opacity > 0
    }
    Rectangle {
        // The shadow of its leading edge on the page under it.
        anchors.right: parent.left
        width: Theme.slideShadowWidth
        height: parent.height
        visible: pageView.offset > 0 && pageView.index > 0
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop {
                position: Appearance.mirrored ? 1 : 0
                color: "transparent"
            }
            GradientStop {
                position: Appearance.mirrored ? 0 : 1
                color: Theme.slideShadowColor
            }
        }
    }
}
