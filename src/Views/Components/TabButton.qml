import QtQuick
import Orvelle

// One tab of the panel's bar.
Rectangle {
    id: root

    property var tab
    property var resting // its two looks
    property var active
    property real response
    property real dampingFraction
    property bool showsFocus: activeFocus
    signal pressed
    signal clicked

    objectName: "tab." + tab.id
    color: Style.mixed(resting.background, active.background, activity.value)
    Accessible.role: Accessible.PageTab
    Accessible.name: tab.label
    Accessible.selectable: true
    Accessible.selected: tab.isActive
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: clicked()
    Keys.onSpacePressed: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    SpringValue {
        id: activity
        target: root.tab.isActive ? 1 : 0
        response: root.response
        dampingFraction: root.dampingFraction
        restDistance: 0.002
    }
    PointerGround {
        radius: root.radius
        isHovered: pointer.containsMouse || spot.isHovered
        isPressed: pointer.pressed
    }
    // One over the other: a symbol is kept for each colour that it is drawn in.
    Item {
        anchors.fill: parent
        opacity: pointer.pressed ? 0.6 : 1

        Symbol {
            anchors.centerIn: parent
            name: root.tab.symbol.name
            size: root.tab.symbol.size
            color: root.resting.symbol
            visible: activity.value < 1
        }
        Symbol {
            objectName: "activeSymbol"
            anchors.centerIn: parent
            name: root.tab.symbol.name
            size: root.tab.symbol.size
            color: root.active.symbol
            opacity: activity.value
            visible: opacity > 0
        }
    }
    Rectangle {
        anchors.fill: parent
        radius: root.radius
        visible: root.showsFocus
        color: "transparent"
        border.color: Style.focusColor
    }
    MouseArea {
        id: pointer
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onPressed: root.pressed()
        onClicked: root.clicked()
    }
    HelpSpot {
        id: spot
        helpText: root.tab.label
    }
}
