import QtQuick
import Orvelle

// A file: its icon over its name.
Item {
    id: root

    required property var entry
    property FileShelfBinding view
    signal tapped

    function openMenu() {
        menu.openAt(width / 2, view.cellPadding + view.iconSize)
    }

    objectName: "shelfItem." + entry.name.text
    Accessible.role: Accessible.ListItem
    Accessible.name: entry.name.text
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: view.open(entry.id)

    PointerGround {
        radius: 6
        isHovered: hover.hovered
        isPressed: pointer.pressed
    }
    HoverHandler {
        id: hover
    }
    Rectangle {
        anchors.fill: parent
        radius: 6
        visible: root.activeFocus
        color: "transparent"
        border.color: Style.focusColor
    }
    Column {
        id: content
        y: root.view.cellPadding
        width: parent.width
        spacing: root.view.cellSpacing

        FileIcon {
            objectName: "icon"
            icon: root.entry.icon
            width: root.view.iconSize
            height: root.view.iconSize
            anchors.horizontalCenter: parent.horizontalCenter
        }
        PanelText {
            objectName: "name"
            content: root.entry.name
            width: Math.min(implicitWidth, root.view.nameWidth)
            elide: Text.ElideMiddle
            anchors.horizontalCenter: parent.horizontalCenter
            Accessible.ignored: true // the cell bears it
        }
    }
    TapHandler {
        id: pointer
        onTapped: root.tapped()
        onDoubleTapped: root.view.open(root.entry.id)
    }
    DragHandler {
        target: null
        // A quick flick is over before the drag begins, which would then wait for a release.
        function dragOut() {
            if (active)
                root.view.drag(root.entry.id);
        }
        onActiveChanged: if (active) Qt.callLater(dragOut)
    }
    ContextMenu {
        id: menu
        anchors.fill: parent
        menu: () => root.view.contextMenu(root.entry.id)
    }
}
