import QtQuick
import Orvelle

// A page that is a list of rows, in groups. What cannot be followed is read anew whenever the
// window gets the keyboard back.
FormPage {
    id: root

    property var view
    readonly property bool isInFront: Window.active

    onIsInFrontChanged: if (isInFront) view.appear()

    Repeater {
        model: root.view.rows

        SettingsFormRow {
            view: root.view
            width: parent.width
        }
    }
}
