import QtQuick
import Orvelle

// Lies over the view of something that scrolls: takes the wheel for it, blackens its ends where it
// goes on, and shows a thin mark while it moves, or always where whole rows hide that there is more.
WheelArea {
    id: root

    required property Flickable list
    property Item area: list // that takes the wheel
    readonly property real fade: 14
    readonly property bool cutsRows: pitch === 0
                                     || Math.abs(whole(list.contentY) - list.contentY) > 0.5
    property real edge: 0 // between the list's last row and its end
    property real pitch: 0 // of the rows, where only whole ones are to be shown
    readonly property real first: list.originY - list.topMargin
    readonly property real last: Math.max(first, list.originY + list.contentHeight
                                          + list.bottomMargin - list.height)
    // Where the list is, or is on its way to.
    readonly property real goal: slide.running ? slide.to : list.contentY
    readonly property real notch: 120
    readonly property int duration: 120 // of a movement, in milliseconds
    property int columns: 1
    signal revealed(int index)

    function clamped(y) {
        return Math.max(first, Math.min(last, y))
    }
    // For an end with this much of the list behind it.
    function shareOfFade(hidden) {
        return cutsRows ? Math.max(0, Math.min(1, hidden / fade)) : 0
    }
    function whole(y) {
        return pitch > 0 ? first + Math.round((y - first) / pitch) * pitch : y
    }
    function slideTo(y) {
        slide.stop()
        slide.from = list.contentY
        slide.to = clamped(y)
        slide.index = -1
        slide.start()
    }

    // To an entry that may not be there to see yet.
    function reveal(index) {
        const from = list.contentY
        slide.stop()
        list.positionViewAtIndex(index, ListView.Contain)
        const to = list.contentY
        list.contentY = from
        slideTo(to)
        slide.index = index
    }
    // What the keys of whole ways do to the current entry; false for other keys.
    function jump(event) {
        if (event.modifiers & ~Qt.KeypadModifier || list.count === 0)
            return false
        const last = list.count - 1
        const page = Math.max(1, Math.floor(list.height * list.count / list.contentHeight / columns))
        switch (event.key) {
        case Qt.Key_Home:
            list.currentIndex = 0
            return true
        case Qt.Key_End:
            list.currentIndex = last
            return true
        case Qt.Key_PageUp:
            list.currentIndex = Math.max(0, list.currentIndex - page * columns)
            return true
        case Qt.Key_PageDown:
            list.currentIndex = Math.min(last, list.currentIndex + page * columns)
            return true
        }
        return false
    }

    objectName: "scrollEdges"
    parent: area
    anchors.fill: parent
    z: 1
    canScrollUp: goal > first + 0.5
    canScrollDown: goal < last - 0.5
    onScrolled: units => {
        const isTurn = units % notch === 0
        const y = goal - units * (isTurn && pitch > 0 ? pitch : 60) / notch
        if (isTurn) {
            slideTo(whole(y))
            return
        }
        slide.stop()
        list.contentY = clamped(y)
        if (pitch > 0)
            rest.restart()
    }

    NumberAnimation {
        id: slide

        property int index: -1 // of the entry that it goes to

        target: root.list
        property: "contentY"
        duration: root.duration
        easing.type: Easing.OutCubic
        onFinished: if (index >= 0) root.revealed(index)
    }
    // Fingers have come to rest, perhaps amid a row.
    Timer {
        id: rest
        interval: 250
        onTriggered: root.slideTo(root.whole(root.list.contentY))
    }
    Item {
        x: root.list === root.area ? 0 : root.list.x
        y: root.list === root.area ? 0 : root.list.y
        width: root.list.width
        height: root.list.height - root.edge

        Rectangle {
            objectName: "upperFade"
            width: parent.width
            height: root.fade
            opacity: root.shareOfFade(root.list.contentY - root.first)
            visible: opacity > 0
            gradient: Gradient {
                GradientStop { position: 0; color: "black" }
                GradientStop { position: 1; color: "transparent" }
            }
        }
        Rectangle {
            objectName: "lowerFade"
            anchors.bottom: parent.bottom
            width: parent.width
            height: root.fade
            opacity: root.shareOfFade(root.last - root.list.contentY)
            visible: opacity > 0
            gradient: Gradient {
                GradientStop { position: 0; color: "transparent" }
                GradientStop { position: 1; color: "black" }
            }
        }
        Rectangle {
            id: mark

            readonly property real share: parent.height / (parent.height + root.last - root.first)
            readonly property real progress: (root.list.contentY - root.first)
                                             / Math.max(1, root.last - root.first)

            objectName: "scrollMark"
            anchors.right: parent.right
            width: 3
            height: Math.max(14, share * parent.height)
            y: Math.max(0, Math.min(1, progress)) * (parent.height - height)
            radius: width / 2
            color: Style.scrollMarkColor
            opacity: root.last > root.first && (moving.running || root.pitch > 0) ? 1 : 0
            visible: opacity > 0

            Behavior on opacity {
                NumberAnimation {
                    duration: 200
                }
            }
        }
        Timer {
            id: moving
            interval: 700
        }
    }
    Connections {
        target: root.list
        ignoreUnknownSignals: true
        function onContentYChanged() {
            moving.restart()
        }
        function onMovementStarted() {
            slide.stop()
        }
        function onCurrentIndexChanged() {
            slide.stop()
        }
    }
}
