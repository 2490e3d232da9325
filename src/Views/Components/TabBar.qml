import QtQuick
import Orvelle

// The panel's tabs, equally wide. The keyboard enters at the active one; left and right move it from
// tab to tab.
FocusScope {
    id: root

    property alias model: tabs.model
    property real spacing
    property real cornerRadius
    property var resting // the look of a tab, and that of the active one
    property var active
    property real response
    property real dampingFraction
    signal selected(string id)

    // A tab that the pointer took needs no ring when its panel brings the keyboard along.
    property bool isLedByPointer: false

    activeFocusOnTab: true
    onActiveFocusChanged: if (!activeFocus) isLedByPointer = false
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Panels")

    Repeater {
        id: tabs

        TabButton {
            id: button

            required property var entry
            required property int index
            readonly property real step: (root.width + root.spacing) / tabs.count

            tab: entry
            resting: root.resting
            active: root.active
            response: root.response
            dampingFraction: root.dampingFraction
            x: Math.round(index * step)
            width: Math.round((index + 1) * step - root.spacing) - x
            height: root.height
            radius: root.cornerRadius
            focus: entry.isActive || index === 0 // the last to say so has it
            showsFocus: activeFocus && !root.isLedByPointer
            onPressed: root.isLedByPointer = true
            onClicked: root.selected(entry.id)
            Keys.onLeftPressed: root.focusTab(index - 1)
            Keys.onRightPressed: root.focusTab(index + 1)
        }
    }

    // From the active tab to the next in this direction; false without tabs.
    function step(direction) {
        let current = direction > 0 ? -1 : tabs.count
        for (let index = 0; index < tabs.count; ++index)
            if (tabs.itemAt(index).entry.isActive)
                current = index
        return tabs.count > 0 && choose((current + direction + tabs.count) % tabs.count)
    }
    // As a key does; false where there is no such tab.
    function choose(index) {
        if (index >= tabs.count)
            return false
        focusTab(index)
        selected(tabs.itemAt(index).entry.id)
        return true
    }
    function focusTab(index) {
        isLedByPointer = false
        const tab = tabs.itemAt((index + tabs.count) % tabs.count)
        tab.forceActiveFocus(Qt.TabFocusReason)
    }
}
