import QtQuick
import Orvelle

// One event: its calendar's colour, what and when it is, and how long until it starts.
Rectangle {
    id: root

    property CalendarExpandedBinding view
    property var event
    property bool isFocused

    function openMenu() {
        return menu.openAt(circle.x, height)
    }

    objectName: "event." + event.title.text
    Accessible.role: Accessible.ListItem
    Accessible.name: event.title.text
    Accessible.focusable: true
    Accessible.focused: isFocused
    implicitHeight: texts.height + 2 * view.rowVerticalPadding
    radius: view.rowCornerRadius
    color: event.fill
    border.color: isFocused ? Style.focusColor : "transparent"

    PointerGround {
        radius: root.radius
        isHovered: hover.hovered
    }
    HoverHandler {
        id: hover
    }
    ContextMenu {
        id: menu
        anchors.fill: parent
        menu: () => root.view.rowMenu(root.event.startDate)
    }
    Rectangle {
        id: circle
        objectName: "circle"
        x: root.view.rowHorizontalPadding
        width: root.view.circleDiameter
        height: width
        radius: width / 2
        color: root.event.circle
        anchors.verticalCenter: parent.verticalCenter
    }
    Column {
        id: texts
        x: circle.x + circle.width + root.view.rowSpacing
        y: root.view.rowVerticalPadding
        width: until.x - root.view.rowSpacing - x

        PanelText {
            objectName: "title"
            width: parent.width
            content: root.event.title
        }
        Row {
            width: parent.width
            spacing: root.view.rowSpacing

            PanelText {
                id: time
                objectName: "time"
                content: root.event.time
            }
            Loader {
                active: !!root.event.location
                width: parent.width - time.width - parent.spacing
                sourceComponent: PanelText {
                    objectName: "location"
                    content: root.event.location
                }
            }
        }
    }
    Loader {
        id: until
        active: !!root.event.untilStart
        x: root.width - root.view.rowHorizontalPadding - width
        anchors.verticalCenter: parent.verticalCenter
        sourceComponent: PanelText {
            objectName: "untilStart"
            content: root.event.untilStart
        }
    }
}
