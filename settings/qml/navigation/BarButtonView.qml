import QtQuick
import QuietDial.Settings

// A picture button of the bar, at least as large as a finger needs it.
AccessibleElement {
    id: view

    required property BarButton button
    required property Navigation navigation

    kind: button.present ? AccessibleElement.Button : AccessibleElement.None
    name: button.name
    Accessible.role: Accessible.Button
    visible: button.present
    enabled: button.enabled
    activeFocusOnTab: button.present && button.enabled
    width: Math.max(Theme.hitSize, button.pictureWidth + 2 * Theme.barPictureMargin)
    height: parent.height
    onPressed: {
        navigation.endEditing();
        button.press();
    }

    Picture {
        anchors.centerIn: parent
        width: view.button.pictureWidth
        height: view.button.pictureHeight
        source: view.button.picture
        opacity: !view.button.enabled ? Theme.disabledOpacity
                 : tap.pressed ? Theme.pressedOpacity : 1
    }
    TapHandler {
        id: tap
        onTapped: view.tap()
    }
    FocusFrame {
        target: view
    }
}
