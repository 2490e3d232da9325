import QtQuick
import Orvelle

// Opens a menu under the pointer at a press of the right button, over whatever it is laid on. What
// an ancestor's `commonMenu` offers stands last in it. The menu's window is made when it is first
// needed.
MouseArea {
    id: root

    // Gives the menu of this moment.
    property var menu: () => undefined

    acceptedButtons: Qt.RightButton
    onPressed: mouse => mouse.accepted = openAt(mouse.x, mouse.y)

    function common() {
        for (let ancestor = parent; ancestor; ancestor = ancestor.parent)
            if (ancestor.commonMenu)
                return ancestor.commonMenu()
        return undefined
    }
    function joined(own, shared) {
        return own && shared ? own.followedBy(shared) : own || shared
    }
    // False when there is nothing to offer.
    function openAt(x, y) {
        const entries = joined(menu(), common())
        if (!entries || entries.lines.length === 0)
            return false
        loader.active = true
        loader.item.open(entries, mapToGlobal(x, y))
        return true
    }
    function openBelow(item) {
        const corner = mapFromItem(item, 0, item.height)
        openAt(corner.x, corner.y)
    }

    Loader {
        id: loader
        active: false
        source: "qrc:/Orvelle/PopupMenu.qml"
    }
}
