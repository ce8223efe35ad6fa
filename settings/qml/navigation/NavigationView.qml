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
        target: view.navigation // qmllint disable type
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
    Item {
        anchors.left: parent.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.topMargin: Theme.barHeight
        width: Theme.edgeWidth

        // A swipe from the edge takes the page along; a tap there is the page's.
        DragHandler {
            id: swipe
            property real way: 0
            target: null
            yAxis.enabled: false
            enabled: view.navigation.top > 0 && !slide.running
            function follow() {
                if (!active)
                    return;
                const step = centroid.scenePosition.x - centroid.scenePressPosition.x;
                way = Math.max(0, Appearance.mirrored ? -step : step);
                view.depth = view.navigation.top - Math.min(1, way / view.width);
            }
            onActiveChanged: follow()
            onCentroidChanged: follow()
            onGrabChanged: transition => {
                if (transition === PointerDevice.UngrabExclusive && way > view.width / 3)
                    view.navigation.back();
                else if (transition === PointerDevice.UngrabExclusive
                         || transition === PointerDevice.CancelGrabExclusive)
                    view.slideTo(view.navigation.top, true);
            }
        }
    }
}
