import QtQuick
import Orvelle

// A button that is its symbol and its text alone. The room around it takes the click too.
Item {
    id: root

    property var symbol
    property var label
    readonly property real reach: Math.max(0, (Style.smallestTarget - height) / 2)
    signal clicked

    implicitWidth: content.implicitWidth
    implicitHeight: content.implicitHeight
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: label.text
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: clicked()
    Keys.onSpacePressed: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    PointerGround {
        anchors.margins: -3
        anchors.leftMargin: -6
        anchors.rightMargin: -6
        isHovered: hover.hovered
        isPressed: pointer.pressed
    }
    Row {
        id: content
        spacing: 4
        opacity: pointer.pressed ? 0.6 : 1

        PanelSymbol {
            content: root.symbol
            anchors.verticalCenter: parent.verticalCenter
        }
        PanelText {
            content: root.label
            font.underline: root.activeFocus
            anchors.verticalCenter: parent.verticalCenter
            Accessible.ignored: true // the button bears it
        }
    }
    HoverHandler {
        id: hover
        margin: root.reach
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler {
        id: pointer
        margin: root.reach
        onTapped: root.clicked()
    }
}
