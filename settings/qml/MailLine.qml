import QtQuick
import QuietDial.Settings

// Between two lines of a mail's head.
Rectangle {
    x: Theme.mailMargin
    width: parent ? parent.width - x : 0
    height: Theme.hairline
    color: Theme.separatorColor
}
