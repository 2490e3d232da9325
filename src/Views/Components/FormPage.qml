import QtQuick
import QtQuick.Templates as T
import Orvelle

// A page of an ordinary window, which scrolls: by the wheel, by Page Up and Page Down, and to
// whatever takes the keyboard.
Flickable {
    id: root

    default property alias content: column.data
    property real margin: 20
    readonly property real scrollStep: 5
    readonly property Item focused: Window.activeFocusItem

    function scrollTo(y) {
        contentY = Math.max(0, Math.min(y, contentHeight - height))
    }
    function scrollToEnd() {
        scrollTo(contentHeight)
    }
    function reveal(item) {
        column.forceLayout() // what is new has no place yet
        for (let ancestor = item; ancestor !== column; ancestor = ancestor.parent)
            if (!ancestor)
                return
        const top = item.mapToItem(contentItem, 0, 0).y - margin
        const bottom = top + item.height + 2 * margin
        if (top < contentY)
            scrollTo(top)
        else if (bottom > contentY + height)
            scrollTo(bottom - height)
    }

    // Scrolls on while the pointer, at this y of `item`, drags near an edge, no further than the item
    // goes. Returns how far.
    function scrollAtEdge(item, y) {
        const before = contentY
        const at = item.mapToItem(root, 0, y).y
        const top = item.mapToItem(contentItem, 0, 0).y - margin
        const bottom = top + item.height + 2 * margin - height
        if (at < margin && before > top)
            scrollTo(Math.max(before - scrollStep, top))
        else if (at > height - margin && before < bottom)
            scrollTo(Math.min(before + scrollStep, bottom))
        return contentY - before
    }

    objectName: "scroll"
    contentWidth: width
    contentHeight: column.height + margin
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    onFocusedChanged: reveal(focused)
    onHeightChanged: reveal(focused)
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_PageUp && event.key !== Qt.Key_PageDown)
            return
        event.accepted = true
        scrollTo(contentY + (event.key === Qt.Key_PageUp ? -1 : 1) * (height - 2 * margin))
    }

    // Without the momentum of a flick, which would take the next press for its end.
    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => root.scrollTo(root.contentY - event.angleDelta.y / 2)
    }
    Column {
        id: column
        x: root.margin
        width: root.width - 2 * x
    }
    T.ScrollBar.vertical: T.ScrollBar {
        id: bar
        implicitWidth: 10
        padding: 2
        minimumSize: 0.1
        visible: size < 1
        Accessible.ignored: true
        contentItem: Rectangle {
            implicitWidth: 6
            radius: 3
            color: FormStyle.knobColor
            opacity: bar.pressed ? 0.5 : bar.hovered || root.moving ? 0.35 : 0.16
        }
    }
}
