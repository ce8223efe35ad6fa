import QtQuick
import QuietDial.Settings

// Says what a line of a mail's head holds.
MailText {
    x: Theme.mailMargin
    color: Theme.noteColor
    elide: Text.ElideNone
}
