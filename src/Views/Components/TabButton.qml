import QtQuick
import Orvelle

// One tab of the panel's bar.
Rectangle {
    id: root

    property var tab
    property bool showsFocus: activeFocus
    signal pressed
    signal clicked

    objectName: "tab." + tab.id
    color: tab.background
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

    PanelSymbol {
        anchors.centerIn: parent
        content: root.tab.symbol
        opacity: pointer.pressed ? 0.6 : 1
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
        onPressed: root.pressed()
        onClicked: root.clicked()
    }
    HelpSpot {
        helpText: root.tab.label
    }
}
