import QtQuick
import Orvelle

// A row that can be pulled to either side, with the pointer or a sideways wheel. A short pull
// uncovers an action and stays there, a long one performs it when let go. One row of a list is open
// at a time.
Item {
    id: root

    // Null where there is nothing to do.
    property var leading: null
    property var trailing: null
    property color background
    property bool isHighlighted: false
    property PanelList list
    property real offset: 0
    readonly property bool isOpen: offset !== 0 && !pull.active && !wheelRest.running
    default property alias content: body.data
    signal leadingPerformed
    signal trailingPerformed

    function perform(isLeading) {
        offset = 0
        if (isLeading)
            leadingPerformed()
        else
            trailingPerformed()
    }
    function pulled(distance) {
        const action = distance > 0 ? leading : trailing
        offset = action ? distance : 0
    }
    function settle() {
        if (offset === 0)
            return
        const action = offset > 0 ? leading : trailing
        const pull = Math.abs(offset)
        if (pull > action.fullSwipe * width)
            perform(offset > 0)
        else
            offset = pull > action.width / 2 ? Math.sign(offset) * action.width : 0
    }

    clip: true
    onOffsetChanged: {
        if (offset !== 0)
            list.opened = root
        else if (list.opened === root)
            list.opened = null
    }

    Connections {
        target: root.list
        function onOpenedChanged() {
            if (root.list.opened !== root)
                root.offset = 0
        }
    }
    Loader {
        active: !!root.leading
        width: Math.max(0, body.x - 4)
        height: parent.height
        sourceComponent: SwipeUnderlay {
            objectName: "leadingAction"
            action: root.leading
            onPicked: root.perform(true)
        }
    }
    Loader {
        active: !!root.trailing
        anchors.right: parent.right
        width: Math.max(0, -body.x - 4)
        height: parent.height
        sourceComponent: SwipeUnderlay {
            objectName: "trailingAction"
            action: root.trailing
            onPicked: root.perform(false)
        }
    }
    Rectangle {
        id: body
        objectName: "rowBody"
        x: root.offset
        width: parent.width
        height: parent.height
        radius: 6
        color: root.background
        border.width: root.isHighlighted ? 1 : 0
        border.color: Style.focusColor

        PointerGround {
            radius: parent.radius
            isHovered: hover.hovered
        }
        Behavior on x {
            enabled: !pull.active
            NumberAnimation {
                duration: 150
                easing.type: Easing.OutCubic
            }
        }
    }
    HoverHandler {
        id: hover
    }
    // What is in the row acts again when it is closed.
    MouseArea {
        anchors.fill: body
        enabled: root.isOpen
        onClicked: root.offset = 0
    }
    DragHandler {
        id: pull

        property real start: 0

        target: null
        yAxis.enabled: false
        onActiveChanged: {
            if (!active) {
                root.settle()
                return
            }
            start = root.offset
            // The move that makes it a pull counts: a quick one may have no other.
            root.pulled(start + centroid.position.x - centroid.pressPosition.x)
        }
        onTranslationChanged: if (active) root.pulled(start + translation.x)
    }
    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        orientation: Qt.Horizontal
        target: null
        onWheel: event => {
            root.pulled(root.offset + event.angleDelta.x / 3)
            wheelRest.restart()
        }
    }
    Timer {
        id: wheelRest
        interval: 250
        onTriggered: root.settle()
    }
}
