import QtQuick
import QuietDial.Settings

// Hands taps anywhere in a view to the view's recognisers, without keeping them from what lies
// under the finger.
TapHandler {
    required property ViewItem view

    enabled: view.recognizesTaps
    onTapped: view.recognizeTap()
}
