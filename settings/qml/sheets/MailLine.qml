import QtQuick
import QuietDial.Settings

// Between two lines of a mail's head.
Hairline {
    x: Theme.mailMargin
    width: parent ? parent.width - x : 0
}
