import QtQuick
import QuietDial.Dialler
import QuietDial.Settings

// A text that assistive technology is told of as well.
AccessibleElement {
    id: words

    property alias text: label.text
    property alias color: label.color
    property real size: DiallerTheme.noteSize
    property int weight: Font.Normal
    // On one line, smaller where it has no room.
    property bool fits: false

    implicitHeight: visible ? label.implicitHeight : 0
    height: implicitHeight
    visible: text.length > 0
    kind: AccessibleElement.Text
    name: text

    Text {
        id: label
        width: parent.width
        textFormat: Text.PlainText
        font.pixelSize: words.size * DiallerTheme.textScale
        font.weight: words.weight
        font.hintingPreference: Font.PreferNoHinting
        wrapMode: words.fits ? Text.NoWrap : Text.Wrap
        elide: Text.ElideRight
        maximumLineCount: words.fits ? 1 : 12
        fontSizeMode: words.fits ? Text.HorizontalFit : Text.FixedSize
        minimumPixelSize: DiallerTheme.noteSize
        horizontalAlignment: Text.AlignHCenter
    }
}
