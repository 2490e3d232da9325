import QtQuick
import Orvelle

// Rows of one height whose order the user changes; its delegate is a ReorderRow. `moved` asks for
// a row to stand at another position.
Item {
    id: root

    property alias model: repeater.model
    property alias delegate: repeater.delegate
    property string name
    property real rowHeight: 34
    readonly property alias count: repeater.count
    // The row that hangs on the pointer, or -1, and how far it has come.
    property int dragged: -1
    property real pull: 0
    // Where the pointer is on the list, whose page scrolls when a row is dragged to its edge.
    property real grip: 0
    property FormPage page
    readonly property int target: clampedRow(Math.round(dragged + pull / rowHeight))
    signal moved(int from, int to)

    function clampedRow(index) {
        return Math.max(0, Math.min(index, count - 1))
    }
    function focusRow(index) {
        const row = repeater.itemAt(clampedRow(index))
        if (row)
            row.forceActiveFocus(Qt.TabFocusReason)
    }
    function move(from, to) {
        if (to !== from && to === clampedRow(to))
            moved(from, to)
    }
    function drag(index, way, at) {
        dragged = index
        pull = way
        grip = at
    }
    function drop() {
        const from = dragged
        const to = target
        dragged = -1
        pull = 0
        move(from, to)
    }
    // The place of a row while another one is dragged past it.
    function place(index) {
        if (dragged < 0)
            return index * rowHeight
        if (index === dragged)
            return Math.max(0, Math.min(index * rowHeight + pull, height - rowHeight))
        const gap = index > dragged && index <= target ? -1
                    : index < dragged && index >= target ? 1 : 0
        return (index + gap) * rowHeight
    }

    implicitHeight: count * rowHeight
    Accessible.role: Accessible.List
    Accessible.name: name

    Repeater {
        id: repeater
    }
    Timer {
        interval: 16
        repeat: true
        running: root.dragged >= 0 && root.page
        onTriggered: {
            const way = root.page.scrollAtEdge(root, root.grip)
            root.grip += way
            root.pull += way
        }
    }
}
