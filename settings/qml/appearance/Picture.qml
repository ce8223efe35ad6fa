import QtQuick
import QuietDial.Settings

// A picture of the frameworks, decoded for the pixels that it covers.
Image {
    asynchronous: true
    // qmllint disable type
    sourceSize: Qt.size(Math.round(width * Theme.devicePixelRatio),
                        Math.round(height * Theme.devicePixelRatio))
    // qmllint enable type
}
