import QtQuick
import Orvelle

// The tab bar over the active panel.
FocusScope {
    id: root

    property NotchContentBinding view

    objectName: "expandedContent"
    focus: true

    ContextMenu {
        anchors.fill: parent
        menu: () => root.view.contextMenu()
    }
    TabBar {
        id: tabs
        objectName: "tabBar"
        z: 1
        focus: true
        x: root.view.tabBarPadding
        y: root.view.tabBarTopPadding
        width: parent.width - 2 * x
        height: root.view.tabMinHeight
        model: root.view.tabs
        spacing: root.view.tabSpacing
        cornerRadius: root.view.tabCornerRadius
        onSelected: id => {
            const isByKey = activeFocus
            root.view.selectPanel(id)
            if (isByKey)
                root.view.takeKeyboard()
        }
    }
    Divider {
        id: divider
        x: root.view.dividerPadding
        anchors.top: tabs.bottom
        width: parent.width - 2 * x
    }
    Item {
        anchors.top: divider.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        clip: true

        PanelSlide {
            id: panels
            objectName: "panels"
            anchors.fill: parent
            anchors.margins: root.view.contentPadding
            response: root.view.panelResponse
            dampingFraction: root.view.panelDampingFraction
        }
    }

    Connections {
        target: root.view
        function onActivePanelChanged() {
            panels.show(root.view.panelSource, root.view.entersFromTrailing ? 1 : -1)
        }
    }
    Component.onCompleted: panels.show(view.panelSource, 0)
}
