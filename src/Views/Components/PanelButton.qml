import QtQuick
import Orvelle

// A symbol that acts. The room around it takes the click too.
Item {
    id: root

    property var content
    property string name
    property string help
    property real margin: 4 // of the room around it that takes the click, at least
    property bool isBusy: false // turns while what it began is under way
    signal clicked

    function reach(extent) {
        return Math.max(margin, (Style.smallestTarget - extent) / 2)
    }

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

    PointerGround {
        anchors.margins: -3
        isHovered: pointer.containsMouse || spot.isHovered
        isPressed: pointer.pressed
    }
    PanelSymbol {
        id: symbol
        objectName: "buttonSymbol"
        anchors.centerIn: parent
        content: root.content
        opacity: !root.enabled ? 0.4 : pointer.pressed ? 0.6 : 1

        NumberAnimation on rotation {
            running: root.isBusy
            from: 0
            to: 360
            duration: 900
            loops: Animation.Infinite
            onRunningChanged: if (!running) symbol.rotation = 0
        }
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
        anchors.leftMargin: -root.reach(root.width)
        anchors.rightMargin: -root.reach(root.width)
        anchors.topMargin: -root.reach(root.height)
        anchors.bottomMargin: -root.reach(root.height)
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: root.clicked()
    }
    HelpSpot {
        id: spot
        helpText: root.help
    }
}
