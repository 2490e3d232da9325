import QtQuick
import Orvelle

// A symbol to click on, with a little room around it.
MouseArea {
    id: root

    property var content
    property string name
    // Shown while the pointer rests on it.
    property string help

    implicitWidth: Math.max(26, symbol.implicitWidth + 8)
    implicitHeight: Math.max(26, symbol.implicitHeight + 4)
    hoverEnabled: help !== ""
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.description: help
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: clicked(null)
    Keys.onSpacePressed: clicked(null)
    Keys.onReturnPressed: clicked(null)

    PanelSymbol {
        id: symbol
        anchors.centerIn: parent
        content: root.content
        opacity: root.pressed ? 0.6 : 1
    }
    Rectangle {
        anchors.fill: parent
        radius: 5
        visible: root.activeFocus
        color: "transparent"
        border.color: Style.focusColor
    }
}
