import QtQuick
import Orvelle

// A shape to click on; what is drawn on it is its children.
Rectangle {
    id: root

    property string name
    property string help
    signal clicked

    activeFocusOnTab: true
    opacity: pointer.pressed ? 0.6 : 1
    border.color: Style.focusColor
    border.width: activeFocus ? 1 : 0
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: clicked()
    Keys.onSpacePressed: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    PointerGround {
        radius: root.radius
        isHovered: pointer.containsMouse || spot.isHovered
        isPressed: pointer.pressed
    }
    MouseArea {
        id: pointer
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: root.clicked()
    }
    HelpSpot {
        id: spot
        helpText: root.help
    }
}
