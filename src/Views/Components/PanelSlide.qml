import QtQuick
import Orvelle

// Shows one panel at a time. A new one slides in from its side while the old one leaves to the
// other; a change on the way begins from wherever both stand.
Item {
    id: root

    property real response
    property real dampingFraction
    readonly property Item panel: current ? current.item : null
    readonly property bool running: slotA.isMoving || slotB.isMoving
    property PanelSlot current: null

    // Without a side the panel stands there at once.
    function show(source, side) {
        const leaving = current
        current = current === slotA ? slotB : slotA
        current.enter(source, side)
        leaving?.leave(-side)
    }

    PanelSlot {
        id: slotA
        anchors.fill: parent
        response: root.response
        dampingFraction: root.dampingFraction
    }
    PanelSlot {
        id: slotB
        anchors.fill: parent
        response: root.response
        dampingFraction: root.dampingFraction
    }
}
