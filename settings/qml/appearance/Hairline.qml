import QtQuick
import QuietDial.Settings

// A line one pixel of the screen high. The software renderer fills whole points only, so the line is
// a point high and scaled.
Item {
    id: hairline

    property color color: Theme.separatorColor

    height: Theme.hairline

    Rectangle {
        width: hairline.width
        height: 1
        color: hairline.color
        transform: Scale {
            yScale: hairline.height
        }
    }
}
