import QtQuick
import Orvelle

// A row of a ReorderList, dragged by whatever of it is no control. With the keyboard on it, Alt with
// an arrow key moves it, and an arrow key alone goes to its neighbour.
Item {
    id: root

    required property var entry
    required property int index
    property ReorderList owner
    property string name
    readonly property bool isDragged: owner.dragged === index
    default property alias content: body.data

    objectName: "row." + entry.id
    width: owner.width
    height: owner.rowHeight
    y: owner.place(index)
    z: isDragged ? 1 : 0
    activeFocusOnTab: true
    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.description: qsTr("Alt with Up or Down moves it")
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Keys.onPressed: event => {
        const step = event.key === Qt.Key_Up ? -1 : event.key === Qt.Key_Down ? 1 : 0
        if (step === 0)
            return
        event.accepted = true
        if (event.modifiers & Qt.AltModifier)
            owner.move(index, index + step)
        else
            owner.focusRow(index + step)
    }

    Behavior on y {
        enabled: !root.isDragged
        NumberAnimation { duration: 140; easing.type: Easing.OutCubic }
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: FormStyle.cornerRadius
        visible: root.isDragged || pointer.containsMouse
        color: root.isDragged ? FormStyle.controlColor : FormStyle.hoverColor
        border.color: root.isDragged ? FormStyle.edgeColor : "transparent"
    }
    MouseArea {
        id: pointer

        property real origin
        readonly property real threshold: 4

        function positionOf(mouse) {
            return mapToItem(root.owner, mouse.x, mouse.y).y
        }
        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        cursorShape: root.isDragged ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        onPressed: mouse => {
            origin = positionOf(mouse)
            root.forceActiveFocus(Qt.MouseFocusReason)
        }
        onPositionChanged: mouse => {
            const way = positionOf(mouse) - origin
            if (!pressed || !root.isDragged && Math.abs(way) < threshold)
                return
            root.owner.drag(root.index, way, origin + way)
        }
        onReleased: if (root.isDragged) root.owner.drop()
        onCanceled: {
            root.owner.dragged = -1
            root.owner.pull = 0
        }
    }
    Symbol {
        id: handle
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        name: "line.3.horizontal"
        size: 11
        color: FormStyle.tertiaryColor
    }
    Item {
        id: body
        anchors.left: handle.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        anchors.rightMargin: 12
        height: parent.height
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        radius: FormStyle.cornerRadius
        visible: root.activeFocus && root.focusShown
        color: "transparent"
        border.color: Style.focusColor
        border.width: 2
    }
    // A press gives the keyboard too, but no ring.
    property bool focusShown: true
    onActiveFocusChanged: focusShown = !pointer.pressed
}
