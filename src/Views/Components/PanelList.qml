import QtQuick
import Orvelle

// The rows under a panel's field. Arrow keys go from row to row and back into the field, letters are
// typed there.
ListView {
    id: root

    property FieldBox field
    property ContextMenu menu: null
    property bool showsArrivals: false // scrolls to a row that comes, and lights it for a moment
    property real removalDuration
    property int removalEasing: Easing.InOutQuad
    property Item opened: null // the row that is pulled aside

    function enter() {
        if (count > 0)
            forceActiveFocus()
    }
    // What Escape undoes before it closes the panel; false when there is nothing.
    function stepBack() {
        if (opened) {
            opened = null
            return true
        }
        const wasEmpty = field.text === ""
        field.text = ""
        return !wasEmpty
    }
    function typed(event) {
        const isCommand = event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier)
        if (isCommand || event.text.trim() === "" || event.text < " " || event.text === "\x7f")
            return false
        field.type(event.text)
        return true
    }
    function offers(event) {
        const isMenu = event.key === Qt.Key_Menu
                       || event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier
        if (!isMenu || !menu)
            return false
        menu.openBelow(currentItem)
        return true
    }

    activeFocusOnTab: count > 0 || activeFocus
    onCountChanged: if (count === 0 && activeFocus) field.forceActiveFocus(Qt.TabFocusReason)
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: edges.duration
    Accessible.role: Accessible.List
    Keys.onUpPressed: {
        if (currentIndex > 0)
            decrementCurrentIndex()
        else
            field.forceActiveFocus()
    }
    Keys.onPressed: event => event.accepted = edges.jump(event) || offers(event) || typed(event)
    onContentYChanged: opened = null

    remove: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: root.removalDuration * 1000
            easing.type: root.removalEasing
        }
    }
    removeDisplaced: Transition {
        NumberAnimation {
            property: "y"
            duration: root.removalDuration * 1000
            easing.type: root.removalEasing
        }
    }

    ScrollEdges {
        id: edges
        list: root
        onRevealed: index => arrival.light(root.itemAtIndex(index))
    }
    Connections {
        target: root.model
        enabled: root.showsArrivals
        function onRowsInserted(parent, first) {
            Qt.callLater(edges.reveal, first)
        }
    }
    Rectangle {
        id: arrival
        objectName: "arrival"

        function light(row) {
            if (!row)
                return // it has gone again
            parent = row.ground ?? row
            fading.restart()
        }

        anchors.fill: parent
        radius: 6
        color: "white"
        opacity: 0

        NumberAnimation on opacity {
            id: fading
            running: false
            from: 0.25
            to: 0
            duration: 800
            easing.type: Easing.InQuad
        }
    }
    // A press beside the row that is open closes it, and is not used up.
    MouseArea {
        parent: root.parent
        anchors.fill: parent
        z: 1
        enabled: !!root.opened
        onPressed: mouse => {
            const row = root.opened
            mouse.accepted = false
            if (!row.contains(mapToItem(row, mouse.x, mouse.y)))
                root.opened = null
        }
    }
}
