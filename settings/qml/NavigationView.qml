import QtQuick
import QuietDial.Settings

// The pages and the bar above them. All that moves follows from one number: `depth`, the place of
// the page in sight, which lies between two whole numbers while pages slide.
FocusScope {
    id: view

    required property Navigation navigation
    property real depth: navigation.top

    focus: true

    function slideTo(goal, animated) {
        slide.stop();
        if (!animated || Appearance.reducedMotion) {
            depth = goal;
            navigation.slideEnded();
            return;
        }
        slide.to = goal;
        slide.start();
    }

    Connections {
        target: view.navigation
        function onTopChanged(animated) {
            // Of several pages at once only the last one slides.
            const top = view.navigation.top;
            view.depth = Math.max(top - 1, Math.min(top + 1, view.depth));
            view.slideTo(top, animated);
        }
    }
    NumberAnimation {
        id: slide
        target: view
        property: "depth"
        duration: Theme.slideTime
        easing.type: Easing.BezierSpline
        easing.bezierCurve: [0.1, 0.5, 0.1, 1, 1, 1]
        onFinished: view.navigation.slideEnded()
    }
    Shortcut {
        sequences: ["Escape", Appearance.mirrored ? "Alt+Right" : "Alt+Left"]
        enabled: view.enabled
        onActivated: view.navigation.back()
    }

    Item {
        id: pages
        anchors.fill: parent
        anchors.topMargin: Theme.barHeight
        clip: true

        Repeater {
            model: view.navigation
            PageView {
                navigation: view.navigation
                depth: view.depth
                width: pages.width
                height: pages.height
            }
        }
    }
    NavigationBar {
        width: parent.width
        height: Theme.barHeight
        navigation: view.navigation
        depth: view.depth
    }
    MouseArea {
        id: edge
        property real startX: 0
        anchors.left: parent.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.topMargin: Theme.barHeight
        width: Theme.edgeWidth
        enabled: view.navigation.top > 0 && !slide.running
        propagateComposedEvents: true
        preventStealing: true
        property bool moved: false
        function wayTo(mouse) {
            return Appearance.mirrored ? startX - mouse.x : mouse.x - startX;
        }
        onPressed: mouse => {
            startX = mouse.x;
            moved = false;
        }
        onPositionChanged: mouse => {
            const way = Math.max(0, wayTo(mouse));
            moved = moved || way > Qt.styleHints.startDragDistance;
            if (moved)
                view.depth = view.navigation.top - Math.min(1, way / view.width);
        }
        onReleased: mouse => {
            if (!moved)
                return;
            const way = wayTo(mouse);
            if (way > view.width / 3)
                view.navigation.back();
            else
                view.slideTo(view.navigation.top, true);
        }
        onCanceled: if (moved)
            view.slideTo(view.navigation.top, true)
        onClicked: mouse => mouse.accepted = moved
    }
}
