import QtQuick
import Orvelle

// Says where the keyboard is, around a control. One that the pointer gave it to needs no ring until
// the window is left and comes back.
Rectangle {
    property var control // of the toolkit's templates
    property bool shown: !!control && control.activeFocus
                         && control.focusReason !== Qt.MouseFocusReason

    anchors.fill: parent
    anchors.margins: -3
    visible: shown
    color: "transparent"
    border.color: Style.focusColor
    border.width: 2
    radius: FormStyle.cornerRadius + 3
}
