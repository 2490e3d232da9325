import QtQuick
import Orvelle

// Says where the keyboard is, around a control.
Rectangle {
    property bool shown: false

    anchors.fill: parent
    anchors.margins: -3
    visible: shown
    color: "transparent"
    border.color: Style.focusColor
    border.width: 2
    radius: FormStyle.cornerRadius + 3
}
