import QtQuick
import Orvelle

// A symbol that acts. The room around it takes the click too.
Item {
    id: root

    property var content
    property string name
    property string help
    property real margin: 4
    signal clicked

    implicitWidth: symbol.implicitWidth
    implicitHeight: symbol.implicitHeight
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.focusable: true
    Accessible.onPressAction: clicked()
    Keys.onSpacePressed: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    PanelSymbol {
        id: symbol
        anchors.centerIn: parent
        content: root.content
        opacity: !root.enabled ? 0.4 : pointer.pressed ? 0.6 : 1
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: -3
        radius: 5
        visible: root.activeFocus
        color: "transparent"
        border.color: Style.focusColor
    }
    MouseArea {
        id: pointer
        anchors.fill: parent
        anchors.margins: -root.margin
        hoverEnabled: true
        onClicked: root.clicked()
    }
    HelpSpot {
        helpText: root.help
    }
}
