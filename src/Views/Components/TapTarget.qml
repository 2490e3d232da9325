import QtQuick
import Orvelle

// Something to click on: a button for those who hear it, paler while it is pressed.
MouseArea {
    id: root

    property string name
    property bool isLit: true // under the pointer
    readonly property bool isTarget: acceptedButtons !== Qt.NoButton

    hoverEnabled: isTarget
    cursorShape: isTarget ? Qt.PointingHandCursor : undefined
    opacity: pressed ? 0.6 : 1
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.onPressAction: if (enabled) clicked(null)

    PointerGround {
        isHovered: root.isTarget && root.isLit && root.containsMouse
        isPressed: root.isTarget && root.isLit && root.pressed
    }
}
