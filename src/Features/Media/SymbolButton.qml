import QtQuick
import Orvelle

// A symbol to click on, with a little room around it.
TapTarget {
    id: root

    property var content
    property string help

    implicitWidth: Math.max(26, symbol.implicitWidth + 8)
    implicitHeight: Math.max(26, symbol.implicitHeight + 4)
    activeFocusOnTab: true
    Accessible.description: help
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Keys.onSpacePressed: clicked(null)
    Keys.onReturnPressed: clicked(null)

    PanelSymbol {
        id: symbol
        anchors.centerIn: parent
        content: root.content
    }
    Rectangle {
        anchors.fill: parent
        radius: 5
        visible: root.activeFocus
        color: "transparent"
        border.color: Style.focusColor
    }
}
