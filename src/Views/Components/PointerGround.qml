import QtQuick
import Orvelle

// Lies under a control: lit while the pointer is over it, and more while it is pressed.
Rectangle {
    property bool isHovered: false
    property bool isPressed: false

    objectName: "pointerGround"
    anchors.fill: parent
    radius: 5
    color: !enabled ? "transparent" : isPressed ? Style.pressedColor
           : isHovered ? Style.hoverColor : "transparent"
}
